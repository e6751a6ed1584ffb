#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

struct ssl_ctx_st;

namespace Wt::Impl {

/// The names under which browsers may ask for this server. A page of another host can have its own name lead
/// here (DNS rebinding); its script would then be of the same origin as ours. Names are ASCII, no case.
class HostNames {
public:
    /// "localhost", the machine's own name, short too, and `given`.
    explicit HostNames(const std::vector<std::string>& given = {});

    /// The DNS names of the certificate; "*.a.b" stands for one label in front of "a.b".
    void addCertificate(ssl_ctx_st* tls);
    void add(std::string_view name);

    /// `host`: a Host header of good form, port included. Numeric addresses are always allowed: no name has
    /// been asked for them.
    bool allows(std::string_view host) const;

private:
    std::set<std::string> mNames;
};

/// "h" of "h:80" and "H.", "[::1]" of "[::1]:80".
std::string hostWithoutPort(std::string_view host);

} // namespace Wt::Impl
