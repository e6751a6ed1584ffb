#include "frame/ActionResults.h"

#include "db/MirlUtil.h"
#include "frame/NamesText.h"

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
        lines.push_back(Wt::WString::tr("result.no_answer").arg(namesText(mUnanswered)).toUTF8());
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
