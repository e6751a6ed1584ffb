#pragma once

#include "tests/platform/support/FakePeer.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

/// A database service made of what the test puts into it: it keeps what is written, refuses what the test
/// says, and remembers what it was asked. It holds enough for a session to begin and show its login.
class FakeStore {
public:
    FakeStore();

    /// `members` is the inside of a JSON object: "name": "Desk 1". Index 0 = a singleton.
    /// Replaces the record.
    void put(const std::string& resource, unsigned index, const std::string& members);
    /// Requests of that method and resource that name the record are refused with `error`, an error object of
    /// JSON text. Index 0 = requests that name none.
    void refuse(const std::string& method, const std::string& resource, unsigned index,
                const std::string& error = R"({"errno":9})");
    /// Refuses them no longer.
    void accept(const std::string& method, const std::string& resource, unsigned index);
    /// From now on requests are answered by hanging up.
    void hangUp();

    /// Value of a field as JSON text; "" when there is none.
    std::string field(const std::string& resource, unsigned index, const std::string& key);
    /// What was asked since the last call of forget(), as compact JSON with sorted keys and without "id".
    std::vector<std::string> requests() const;
    void forget();

private:
    struct Free {
        void operator()(json_t* tree) const { json_decref(tree); }
    };
    using Json = std::unique_ptr<json_t, Free>;

    FakePeer::Reply answer(const json_t* request);
    std::string refusal(const std::string& method, const std::string& resource,
                        const std::vector<unsigned>& indexes) const;
    std::string rowsOf(const std::string& resource, const std::vector<unsigned>& indexes);
    std::string write(const std::string& resource, unsigned index, const json_t* params);

    mutable std::mutex mMutex; // guards what follows: the peer answers on its own threads
    std::map<std::string, std::map<unsigned, Json>> mRecords;
    std::map<std::string, std::string> mRefusals; // by method, resource and index
    bool mHangsUp = false;
    std::size_t mForgotten = 0;
    FakePeer mPeer;
};
