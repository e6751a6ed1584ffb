#pragma once

#include "db/InfoMgr.h"

#include <initializer_list>
#include <vector>

/// Kinds of data that a reader shows, each with the number of its last change that this reader has seen.
class WatchedKinds {
public:
    WatchedKinds(std::initializer_list<InfoMgr_InfoID> kinds);

    /// Whether any kind changed since the last time. All are asked for, with one request, so that each number stays
    /// current. A failed read counts as a change, and so does a number that went back: the service has started anew.
    /// Without kinds there is always news: such a reader cannot know.
    bool haveNews();

    /// While it lives the reader reads what it shows. If the service left anything unanswered meanwhile, there is news
    /// the next time.
    class Reading {
    public:
        explicit Reading(WatchedKinds& watched);
        ~Reading();
        Reading(const Reading&) = delete;
        Reading& operator=(const Reading&) = delete;

    private:
        WatchedKinds& mWatched;
        const unsigned long mUnanswered;
    };

private:
    struct Kind {
        InfoMgr_InfoID id;
        unsigned lastChange = 0;
    };

    std::vector<Kind> mKinds;
};
