#pragma once

#include "frame/WObjListContextPanel.h"

struct json_t;
struct ZeqClient_s;

/// A list of events, newest on top until the user sorts it otherwise. The two that there are differ in what they ask for
/// and in how many rows may be selected.
class EventList : public WObjListContextPanel {
public:
    enum Column { Index, Date, Type, Originator, Message };
    static constexpr int kColumnCount = 5;

    void readFromDatabase() override;

    /// Of the one selected row; empty texts when none or several are selected.
    virtual void getCurrentlySelectedRecord(unsigned& instanceId, std::string& date, std::string& type,
                                            std::string& eid, std::string& message) const;

protected:
    using Retrieve = json_t* (*)(ZeqClient_s* client, const char* select);

    EventList(const Wt::WString& title, Retrieve retrieve, Wt::SelectionMode mode,
              const Wt::WString& emptyText, Wt::WContainerWidget* parent);

private:
    Retrieve mRetrieve;
};

/// Events that nobody has acknowledged yet.
class WEventViewUnAckedList : public EventList {
public:
    explicit WEventViewUnAckedList(const Wt::WString& title, Wt::WContainerWidget* parent = nullptr);
};

/// Events that were acknowledged.
class WEventViewHistList : public EventList {
public:
    explicit WEventViewHistList(const Wt::WString& title, Wt::WContainerWidget* parent = nullptr);
};
