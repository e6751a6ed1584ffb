#include "platform/ctl/Command.h"
#include "platform/ctl/Print.h"

namespace zeqctl {

namespace {

constexpr const char* kIntroduction =
    "usage: zeqctl [OPTION...] COMMAND [WORD...]\n"
    "\n"
    "Reads and changes the records of a Switch's database service. Records live in resources:\n"
    "rx (Receivers), tx (Transmitters), swx (Switches), user, connection ... Each has an index,\n"
    "and keys with values.\n"
    "\n"
    "  zeqctl list rx                      which Receivers there are\n"
    "  zeqctl get rx 3                     all about Receiver 3\n"
    "  zeqctl get rx 3 name                just its name\n"
    "  zeqctl set rx 3 name=\"Desk 3\"       another name\n"
    "  zeqctl describe rx                  which keys a Receiver has and what they take\n"
    "  zeqctl watch rx status              what happens to the Receivers\n"
    "\n";

constexpr const char* kExitCodes =
    "\nExit codes: 0 done, 1 refused by the service, 2 wrong usage, 3 no service or no answer, "
    "4 output not written.\n";

void helpOnAll(std::ostream& out) {
    out << kIntroduction;
    std::vector<std::vector<std::string>> rows;
    for (const CommandRow& row : commands()) rows.push_back({row.synopsis, row.summary});
    printTable(out, {"COMMAND", ""}, rows);
    out << "\nzeqctl help COMMAND tells more.\n\n";
    rows.clear();
    for (const OptionRow& row : kOptions) {
        rows.push_back({row.name + (row.value ? std::string(" ") + row.value : ""), row.help});
    }
    printTable(out, {"OPTION", ""}, rows);
    out << kExitCodes;
}

} // namespace

void runHelp(Context& context) {
    if (context.words.empty()) return helpOnAll(context.out);
    const CommandRow* row = findCommand(context.words.front());
    if (!row)
        throw Failure(Exit::Usage, "command '" + context.words.front() + "' unknown; zeqctl help lists them");
    context.out << "usage: zeqctl " << row->synopsis << "\n\n" << row->summary << ".\n" << row->details;
}

} // namespace zeqctl
