#pragma once

#include <Wt/WApplication>

namespace Wt {
class WText;
}

/// A page like the product's main interface: 8 tabs, each with an accordion of 7 cells, a sorted list of 200
/// rows by 6 columns that a timer refills, and 5 details tabs of 12 fields. Everything is built when the
/// session begins. Elements that the load client uses have ids of their own: "count" and what it counts in,
/// "counted"; "ask" and the modal dialog that it opens, with "close".
class SyntheticPage : public Wt::WApplication {
public:
    explicit SyntheticPage(const Wt::WEnvironment& environment);

private:
    void count();
    void ask();

    Wt::WText* mCounted;
    int mCount = 0;
};
