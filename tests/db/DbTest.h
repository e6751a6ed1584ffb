#pragma once

#include "tests/db/FakeStore.h"
#include "tests/platform/support/LogCapture.h"
#include "tests/shell/AppSession.h"

#include "db/Db.h"

#include <gtest/gtest.h>

/// One session on a service that the test makes up. Requests of the session's own beginning are forgotten.
class DbTest : public testing::Test {
protected:
    DbTest() { store.forget(); }

    FakeStore store;
    CleanLogins clean;
    AppSession session;
    LogCapture log;
    Db::Errors errors;
};
