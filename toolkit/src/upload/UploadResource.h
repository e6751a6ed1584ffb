#pragma once

#include <Wt/WResource.h>

#include <functional>

namespace Wt::Impl {

/// Where the browser posts a chosen file to.
class UploadResource : public WResource {
public:
    std::function<void(const Http::UploadedFile&)> arrived;
    std::function<void(std::int64_t)> refused; ///< bytes announced

    ~UploadResource() override;
    void handleRequest(const Http::Request& request, Http::Response& response) override;
};

} // namespace Wt::Impl
