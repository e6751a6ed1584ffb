#pragma once

#include "frame/TwoListMover.h"

#include <string>
#include <vector>

/// Which events raise an alert: those at the right do. A move changes the lists only, until they are stored.
class WSysSettingsViewEnabledEventList : public Wt::WContainerWidget, private TwoListMover::Model {
public:
    explicit WSysSettingsViewEnabledEventList(Wt::WContainerWidget* parent = nullptr);

    /// On purpose: while a row is selected nothing is read, even `unconditional`: the user is about to move it.
    void readFromDatabase(bool unconditional);
    /// Stores all that is listed with one request, if the user has moved something. 1: no answer came. What the
    /// service refused is 0 on purpose, and stands in `errors`.
    unsigned writeToDatabase(std::vector<std::string>& errors);
    void clearSelection() { mMover->clearSelection(); }

    void setUserHasChangedContent(bool changed) { mUserHasChangedContent = changed; }
    bool userHasChangedContent() const { return mUserHasChangedContent; }

    TwoListMover* mover() const { return mMover; }

private:
    struct Event {
        const char* key;
        std::string text; // UTF-8
        bool enabled = false;
    };

    void move(Move move, const std::vector<unsigned>& indexes) override;
    void show(MoverList& left, MoverList& right) override;

    std::vector<Event> mEvents; // a row of the lists names its place from 1
    bool mUserHasChangedContent = false;
    TwoListMover* mMover;
};
