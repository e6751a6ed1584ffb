#include "upload/UploadResource.h"

#include <ostream>

namespace Wt::Impl {

UploadResource::~UploadResource() {
    beingDeleted();
}

void UploadResource::handleRequest(const Http::Request& request, Http::Response& response) {
    response.setMimeType("text/plain");
    if (request.method() != "POST") {
        response.setStatus(405);
        return;
    }
    if (request.tooLarge() > 0) {
        response.setStatus(413);
        if (refused) refused(request.tooLarge());
        return;
    }
    const Http::UploadedFile* file = request.getUploadedFile("data");
    if (!file) {
        response.setStatus(400);
        return;
    }
    response.out() << "ok";
    if (arrived) arrived(*file); // last: a handler may delete the widget, and this with it
}

} // namespace Wt::Impl
