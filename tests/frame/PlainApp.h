#pragma once

#include <Wt/Test/WTestEnvironment>
#include <Wt/WApplication>

/// A session without pages, database or browser, for tests of single widgets and dialogs.
struct PlainApp {
    Wt::Test::WTestEnvironment environment;
    Wt::WApplication application{environment};
};
