#pragma once

#include "frame/ShowBox.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// What became of the requests of one action over several records, so that a user is told of no success that
/// the service has not confirmed.
///
///     ActionResults results;
///     for (...) results.run(name, [&](auto& errors) { return Db::db.deleteRecordByIndex("user", i, errors); });
///     showResults(kRemoved, countedText(results.done(), "...", "..."), results);
class ActionResults {
public:
    using Request = std::function<unsigned(std::vector<std::string>& errors)>;

    /// Makes a request by the conventions of Db. `name` is the record in the user's words, UTF-8, told when
    /// no answer came. True: done.
    bool run(const std::string& name, const Request& request);

    std::size_t done() const { return mDone; }
    std::size_t failed() const { return mFailed; }
    /// A line for each refusal, then one that names what gave no answer. Empty if nothing failed.
    std::vector<std::string> failures() const;

private:
    std::size_t mDone = 0;
    std::size_t mFailed = 0;
    std::vector<std::string> mRefusals;   // translated
    std::vector<std::string> mUnanswered; // names
};

/// Shows the row with the text when all was done. Otherwise the failures follow the text, a line each, and
/// the box is no mere information any more. The number of the button, as showBox().
int showResults(BoxRow row, const Wt::WString& text, const ActionResults& results);

/// Only the failures, as errors.
void showFailures(const ActionResults& results);
