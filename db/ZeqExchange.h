#pragma once

#include "db/ZeqPtr.h"
#include "platform/client/ZeqClient.h"

#include <string>
#include <utility>
#include <vector>

/// One request to the database service and its answer, freed together.
/// The same request may be sent several times.
///
///     ZeqExchange exchange(ZeqReqUtil_newGetResource, "rx", __func__);
///     if (!exchange.ready()) return 1;
///     ZeqObj_setSelect(exchange.request(), "name");
///     if (exchange.send(errors) != 0) return 1;
///     ... ZeqRspUtil_getStringParam(exchange.response(), "name")
class ZeqExchange {
public:
    using NewRequest = json_t* (*)(const char* resource);

    /// Takes the session's client, then makes the request. `caller` is the function named in the log.
    ZeqExchange(NewRequest make, const char* resource, const char* caller);

    /// The same for a request made by the caller; owns it. The client is taken all the same.
    ZeqExchange(ZeqPtr request, const char* caller);

    /// For values of one record: "SET" on the resource, with "params" holding "index" unless that is 0, a
    /// singleton. params() is the place to add to.
    static ZeqExchange setRecord(const char* resource, unsigned index, const char* caller);

    /// Drops the previous answer, sends, and waits. 0 = answered without "errors". 1 = not ready, no answer
    /// (then `noAnswer`, if given, is logged at level 1),
    /// or refused (then translated into `errors` and logged).
    unsigned send(std::vector<std::string>& errors, const char* noAnswer = nullptr);

    /// The same without a word: a refusal is neither translated nor logged.
    unsigned sendQuietly();

    bool ready() const { return mClient && mRequest; }

    ZeqClient_s* client() const { return mClient; }
    json_t* request() const { return mRequest.get(); }
    json_t* params() const;

    /// Owned by this; 0 before a send and when no answer came.
    json_t* response() const { return mResponse.get(); }
    /// Hands the response over.
    ZeqPtr takeResponse() { return std::move(mResponse); }

private:
    explicit ZeqExchange(const char* caller);
    void adopt(ZeqPtr request);
    bool answered();

    ZeqClient_s* mClient = nullptr;
    const char* mCaller;
    ZeqPtr mRequest;
    ZeqPtr mResponse;
};

/// 1 when the response holds "errors", which are then translated into `errors` and logged; else 0.
unsigned zeqRefused(const json_t* response, std::vector<std::string>& errors);

/// Requests sent by this thread, and with it by this session's events, through ZeqExchange and zeqRetrieve.
/// Tests count with it what a refresh costs.
unsigned long zeqExchangeCount();
void zeqCountExchange();
/// Requests that got no answer, or could not be sent for want of a connection.
unsigned long zeqUnansweredCount();
void zeqCountUnanswered();

/// A typed retrieve, which sends at once: zeqRetrieve(ZeqReq_rxRetrieve, client, "[\"index\"]").
/// Empty = no answer.
template <class Retrieve, class... Args>
ZeqPtr zeqRetrieve(Retrieve retrieve, ZeqClient_s* client, Args&&... args) {
    zeqCountExchange();
    ZeqPtr answer(retrieve(client, std::forward<Args>(args)...));
    if (!answer) zeqCountUnanswered();
    return answer;
}
