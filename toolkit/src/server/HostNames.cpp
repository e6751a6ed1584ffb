#include "server/HostNames.h"

#include <boost/asio/ip/address.hpp>

#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include <array>

#include <unistd.h>

namespace Wt::Impl {

namespace {

std::string ownName() {
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

} // namespace

std::string hostWithoutPort(std::string_view host) {
    const std::size_t colon = host.rfind(':');
    const bool hasPort = colon != host.npos && host.find(']', colon) == host.npos;
    std::string name(host.substr(0, hasPort ? colon : host.npos));
    for (char& c : name) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    if (name.size() > 1 && name.back() == '.') name.pop_back(); // the root's dot (RFC 1034 3.1)
    return name;
}

HostNames::HostNames(const std::vector<std::string>& given) {
    const std::string own = ownName();
    add("localhost");
    add(own);
    add(own.substr(0, own.find('.')));
    for (const std::string& name : given) add(name);
}

void HostNames::add(std::string_view name) {
    if (!name.empty()) mNames.insert(hostWithoutPort(name));
}

void HostNames::addCertificate(SSL_CTX* tls) {
    X509* certificate = SSL_CTX_get0_certificate(tls);
    if (!certificate) return;
    auto* names =
        static_cast<GENERAL_NAMES*>(X509_get_ext_d2i(certificate, NID_subject_alt_name, nullptr, nullptr));
    for (int i = 0; i < sk_GENERAL_NAME_num(names); ++i) {
        const GENERAL_NAME* name = sk_GENERAL_NAME_value(names, i);
        if (name->type != GEN_DNS) continue;
        add({reinterpret_cast<const char*>(ASN1_STRING_get0_data(name->d.dNSName)),
             static_cast<std::size_t>(ASN1_STRING_length(name->d.dNSName))});
    }
    GENERAL_NAMES_free(names);
    std::array<char, 256> common{};
    X509_NAME_get_text_by_NID(X509_get_subject_name(certificate), NID_commonName, common.data(),
                              static_cast<int>(common.size()));
    add(common.data());
}

bool HostNames::allows(std::string_view host) const {
    const std::string name = hostWithoutPort(host);
    if (name.empty() || name.front() == '*') return false;
    boost::system::error_code notNumeric;
    const bool bracketed = name.front() == '[' && name.back() == ']';
    if (bracketed)
        boost::asio::ip::make_address_v6(name.substr(1, name.size() - 2), notNumeric);
    else
        boost::asio::ip::make_address_v4(name, notNumeric);
    if (!notNumeric || mNames.count(name) != 0) return true;
    const std::size_t dot = name.find('.');
    return dot != name.npos && mNames.count("*" + name.substr(dot)) != 0;
}

} // namespace Wt::Impl
