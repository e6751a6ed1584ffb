#include "frame/ActionResults.h"

#include "db/MirlUtil.h"

namespace {

constexpr std::size_t kMaxNames = 3;

/// "a, b, c and 4 more"
Wt::WString listed(const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size() && i < kMaxNames; ++i) text += (i == 0 ? "" : ", ") + names[i];
    const Wt::WString shown = Wt::WString::fromUTF8(text);
    if (names.size() <= kMaxNames) return shown;
    return Wt::WString::tr("result.and_more").arg(shown).arg(static_cast<int>(names.size() - kMaxNames));
}

} // namespace

bool ActionResults::run(const std::string& name, const Request& request) {
    std::vector<std::string> refusals; // of this one: Db logs all that it finds in the list
    const bool failed = request(refusals) != 0;
    if (!failed && refusals.empty()) { // some requests tell a refusal only by its words
        ++mDone;
        return true;
    }
    ++mFailed;
    if (refusals.empty()) mUnanswered.push_back(name);
    mRefusals.insert(mRefusals.end(), refusals.begin(), refusals.end());
    return false;
}

std::vector<std::string> ActionResults::failures() const {
    std::vector<std::string> lines = mRefusals;
    if (!mUnanswered.empty())
        lines.push_back(Wt::WString::tr("result.no_answer").arg(listed(mUnanswered)).toUTF8());
    return lines;
}

int showResults(BoxRow row, const Wt::WString& text, const ActionResults& results) {
    if (results.failed() == 0) return showBox(row, text);
    if (row.type == WMsgBox::Info) row.type = WMsgBox::Warning;
    std::string message = text.toUTF8();
    MirlUtil_concatErrMsgs(message, results.failures());
    return showBox(row, Wt::WString::fromUTF8(message));
}

void showFailures(const ActionResults& results) {
    const std::vector<std::string> lines = results.failures();
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
    showBox({WMsgBox::Error, lines.size() == 1 ? "[RSnnn]Error" : "[RSnnn]Errors", {"[RSnnn]Close"}},
            Wt::WString::fromUTF8(text));
}
