#include "server/TlsContext.h"

#include "server/ServerConfig.h"

#include <Wt/WServer.h>

#include <openssl/crypto.h>
#include <openssl/ssl.h>

namespace Wt::Impl {

namespace {

namespace ssl = boost::asio::ssl;

// Forward secrecy and authenticated encryption only.
constexpr const char* kCiphers = "ECDHE+AESGCM:ECDHE+CHACHA20:DHE+AESGCM:!aNULL:!PSK";
constexpr const char* kAlpn = "\x08http/1.1";

void orRefuse(const boost::system::error_code& ec, const char* option, const std::string& file) {
    if (ec) throw WServer::Exception(std::string("--") + option + ": '" + file + "': " + ec.message());
}

int selectProtocol(SSL*, const unsigned char** out, unsigned char* outLength, const unsigned char* in,
                   unsigned inLength, void*) {
    unsigned char* selected = nullptr;
    const auto* offered = reinterpret_cast<const unsigned char*>(kAlpn);
    if (SSL_select_next_proto(&selected, outLength, offered, 9, in, inLength) != OPENSSL_NPN_NEGOTIATED)
        return SSL_TLSEXT_ERR_NOACK;
    *out = selected;
    return SSL_TLSEXT_ERR_OK;
}

} // namespace

ssl::context makeTlsContext(const ServerConfig& config) {
    // The application may end the process from a session's thread while I/O threads are inside the library.
    OPENSSL_init_crypto(OPENSSL_INIT_NO_ATEXIT, nullptr);

    ssl::context context(ssl::context::tls_server);
    SSL_CTX* native = context.native_handle();
    SSL_CTX_set_min_proto_version(native, TLS1_2_VERSION);
    SSL_CTX_set_options(native, SSL_OP_NO_COMPRESSION | SSL_OP_NO_RENEGOTIATION |
                                    SSL_OP_CIPHER_SERVER_PREFERENCE | SSL_OP_SINGLE_DH_USE);
    SSL_CTX_set_mode(native, SSL_MODE_RELEASE_BUFFERS);         // 34 kB less for each idle connection
    SSL_CTX_set_session_cache_mode(native, SSL_SESS_CACHE_OFF); // tickets resume without memory of ours
    SSL_CTX_set_alpn_select_cb(native, selectProtocol, nullptr);

    boost::system::error_code ec;
    context.use_certificate_chain_file(config.sslCertificate, ec);
    orRefuse(ec, "ssl-certificate", config.sslCertificate);
    context.use_private_key_file(config.sslPrivateKey, ssl::context::pem, ec);
    orRefuse(ec, "ssl-private-key", config.sslPrivateKey);
    if (SSL_CTX_check_private_key(native) != 1)
        throw WServer::Exception("--ssl-private-key: '" + config.sslPrivateKey +
                                 "' does not belong to the certificate");
    if (config.sslTmpDh.empty()) {
        SSL_CTX_set_dh_auto(native, 1);
    } else {
        context.use_tmp_dh_file(config.sslTmpDh, ec);
        orRefuse(ec, "ssl-tmp-dh", config.sslTmpDh);
    }
    const std::string ciphers = config.sslCipherList.empty() ? kCiphers : config.sslCipherList;
    if (SSL_CTX_set_cipher_list(native, ciphers.c_str()) != 1)
        throw WServer::Exception("--ssl-cipherlist: no cipher matches '" + ciphers + "'");
    return context;
}

} // namespace Wt::Impl
