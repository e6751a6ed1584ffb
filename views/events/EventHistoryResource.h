#pragma once

#include <Wt/WResource>

/// The event history as "event-history.csv": a line an event, in the service's order, without a heading.
class EventHistoryResource : public Wt::WResource {
public:
    explicit EventHistoryResource(Wt::WObject* parent = nullptr);
    ~EventHistoryResource() override { beingDeleted(); }

    /// Asks the service once, and hands over so many lines at a time as the browser takes them.
    void handleRequest(const Wt::Http::Request& request, Wt::Http::Response& response) override;
};
