#include <Wt/WFileResource.h>

#include <fstream>
#include <ostream>
#include <vector>

namespace Wt {

WStreamResource::WStreamResource(WObject* parent) : WResource(parent) {}
WStreamResource::WStreamResource(const std::string& mimeType, WObject* parent)
    : WResource(parent), mMimeType(mimeType) {}
WStreamResource::~WStreamResource() {
    beingDeleted();
}

void WStreamResource::setMimeType(const std::string& mimeType) {
    mMimeType = mimeType;
    setChanged();
}

void WStreamResource::handleRequestPiecewise(const Http::Request& request, Http::Response& response,
                                             std::istream& input) {
    std::int64_t begin = 0;
    if (Http::ResponseContinuation* continuation = request.continuation()) {
        const auto* place = boost::any_cast<std::int64_t>(&continuation->data());
        begin = place ? *place : 0;
    } else {
        response.setMimeType(mMimeType);
        input.seekg(0, std::ios::end);
        const std::int64_t size = input.tellg();
        if (size >= 0) response.setContentLength(static_cast<::uint64_t>(size));
    }
    input.clear();
    input.seekg(begin);
    std::vector<char> piece(static_cast<std::size_t>(mBufferSize));
    input.read(piece.data(), mBufferSize);
    const std::int64_t got = input.gcount();
    response.out().write(piece.data(), got);
    if (got == mBufferSize && input.peek() != std::istream::traits_type::eof())
        response.createContinuation()->setData(begin + got);
}

WFileResource::WFileResource(WObject* parent) : WStreamResource(parent) {}
WFileResource::WFileResource(const std::string& fileName, WObject* parent)
    : WStreamResource(parent), mFile(fileName) {}
WFileResource::WFileResource(const std::string& mimeType, const std::string& fileName, WObject* parent)
    : WStreamResource(mimeType, parent), mFile(fileName) {}
WFileResource::~WFileResource() {
    beingDeleted();
}

void WFileResource::setFileName(const std::string& fileName) {
    mFile = fileName;
    setChanged();
}

void WFileResource::handleRequest(const Http::Request& request, Http::Response& response) {
    std::ifstream input(mFile, std::ios::binary);
    if (!input) {
        response.setStatus(404);
        return;
    }
    handleRequestPiecewise(request, response, input);
}

} // namespace Wt
