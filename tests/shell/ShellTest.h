#pragma once

#include "tests/platform/support/ZeqdProcess.h"
#include "tests/shell/AppSession.h"

#include <gtest/gtest.h>

/// Tests of sessions against a database service of their own, with no failed logins to begin with.
class ShellTest : public testing::Test {
protected:
    /// Writes a field as the Switch's other programs would; index 0 = a singleton.
    static void store(const char* resource, unsigned index, const char* key, const char* value);
    static void store(const char* resource, unsigned index, const char* key, unsigned value);
    /// Sets what only the service or a device itself writes; numbers as text.
    static void poke(const char* resource, unsigned index, const char* key, const char* value);
    /// Number of records; -1 when they cannot be read.
    static int count(const char* resource);

    ZeqdProcess zeqd;
    TestClock clock;
    CleanLogins clean;
};
