#pragma once

#include "tests/platform/support/FakePeer.h"

#include <map>
#include <mutex>
#include <string>

/// A Switch whose fields a test sets as it likes, whatever the real service would allow. Reads answer one row
/// with the fields of the resource; resources without fields are empty; every login succeeds as user 1.
class FakeSwitch {
public:
    FakeSwitch();

    /// Text as it goes into the answer. An empty value takes the field away.
    void set(const std::string& resource, const std::string& key, const std::string& value);
    /// Reads of this resource are refused, or no longer.
    void refuse(const std::string& resource, bool refused);
    /// Number of requests so far with this text in them.
    int requestsWith(const std::string& text) const;

private:
    FakePeer::Reply answer(const json_t* request);

    std::mutex mMutex; // guards the two maps: the peer answers on its own threads
    std::map<std::string, std::map<std::string, std::string>> mFields;
    std::map<std::string, bool> mRefused;
    FakePeer mPeer;
};
