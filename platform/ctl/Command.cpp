#include "platform/ctl/Command.h"

#include <sstream>

namespace zeqctl {

namespace {

constexpr CommandRow kCommands[] = {
    {"get", "get RESOURCE [INDEX[,INDEX...]] [KEY=VALUE...] [KEY...]", "read records",
     "One key of one record prints the bare value, which is what scripts want. A singleton such as\n"
     "systemGlobals has no index. KEY=VALUE looks records up by another key. Nested keys are written\n"
     "with slashes.\n"
     "\n"
     "  zeqctl get rx 3 name\n"
     "  zeqctl get rx 3,4,5 name status\n"
     "  zeqctl get swx 1 network/ipv4/ipAddress\n"
     "  zeqctl get edid name=\"Desk monitor\" --json\n"
     "  zeqctl get systemGlobals mirlInactivityTimeout\n",
     "rk", runGet},
    {"list", "list RESOURCE [KEY=VALUE...] [KEY...]", "show records as a table",
     "All records, or those that have the values. Without keys, those keys that tell the records\n"
     "apart. Times are local. An empty table is no failure.\n"
     "\n"
     "  zeqctl list rx\n"
     "  zeqctl list rx status=offline\n"
     "  zeqctl list user index name role\n",
     "rk", runList},
    {"set", "set RESOURCE [INDEX[,INDEX...]] KEY=VALUE...", "change a record",
     "All values of one record go in one request: all are stored, or none. Several indexes are\n"
     "written one after the other, and the first refusal ends the command. VALUE is text, or a number\n"
     "where the key holds one; KEY:=JSON gives any JSON; KEY=@FILE takes the content of a file, KEY=@-\n"
     "that of standard input, which keeps secrets out of the list of processes.\n"
     "\n"
     "  zeqctl set rx 3 name=\"Desk 3\" location=\"Control room\"\n"
     "  zeqctl set swx 1 network/ipv4/ipAddress=10.0.0.2\n"
     "  zeqctl set rx 3 reset=cold_reboot\n"
     "  zeqctl set user 2 password=@- < secret.txt\n",
     "ra", runSet},
    {"create", "create RESOURCE KEY=VALUE...", "make a record and print its index",
     "Values as for set.\n"
     "\n"
     "  zeqctl create user name=ops fullName=\"Night shift\" role=user password=@- < secret.txt\n"
     "  zeqctl create connection rxIndex=3 txIndex=5 mode=share_mode\n",
     "ra", runCreate},
    {"delete", "delete RESOURCE INDEX[,INDEX...]", "remove records",
     "Several indexes are removed one after the other; the first refusal ends the command.\n"
     "\n"
     "  zeqctl delete user 7\n",
     "r", runDelete},
    {"watch", "watch RESOURCE [INDEX[,INDEX...]] [KEY...]", "print changes as they happen",
     "Looks every second (--interval) and prints a line for each change, until Ctrl-C or --count\n"
     "changes. Goes on when the service restarts.\n"
     "\n"
     "  zeqctl watch rx status upgradeStatus upgradePercent\n"
     "  zeqctl watch connection --json\n",
     "rk", runWatch},
    {"describe", "describe [RESOURCE]", "tell which resources and keys there are",
     "Without a resource, all of them; with one, its methods, and the type, access, limits and\n"
     "default of its keys.\n"
     "\n"
     "  zeqctl describe\n"
     "  zeqctl describe rx\n",
     "r", runDescribe},
    {"device", "device offline|online EID", "take a simulated device away or bring it back",
     "\n  zeqctl device offline AB12CD-000003\n", "offline online", runDevice},
    {"login", "login USER RECEIVER", "log a user in at a Receiver",
     "USER is the login name, RECEIVER a name or an EID. The Receiver must be free.\n"
     "\n"
     "  zeqctl login mhansen \"Desk 4\"\n",
     "", runLogin},
    {"logout", "logout RECEIVER", "log out whoever is at a Receiver",
     "Ends the KVM session there, too.\n"
     "\n"
     "  zeqctl logout 00A702-020077\n",
     "", runLogout},
    {"cascade", "cascade look|down|up [EID]", "look from the other Switch, or take it away",
     "look: the interface becomes that of the other Switch, without any change of roles; sessions end,\n"
     "as they would at its own address. down and up: the other Switch, or the link to it, is gone and\n"
     "comes back. Without an EID the other Switch of the cascade is meant.\n"
     "\n"
     "  zeqctl cascade look\n"
     "  zeqctl cascade down\n",
     "look down up", runCascade},
    {"manager", "manager enrol [ADDRESS]|leave|down|up",
     "put the Switch under a manager, or the manager out of reach",
     "enrol needs the manager's address once. The steps take some seconds of simulated time; a manager\n"
     "that is down does not answer them, and the enrolment fails.\n"
     "\n"
     "  zeqctl manager enrol 10.20.1.90\n"
     "  zeqctl manager leave\n",
     "enrol leave down up", runManager},
    {"alert", "alert KIND [TEXT]", "raise an event of a kind",
     "KIND is a switch of alertLogControl; while it is off nothing happens. Without a text the event says what\n"
     "its kind is.\n"
     "\n"
     "  zeqctl alert enableAlertFanFault\n"
     "  zeqctl alert enableAlertUserLogin 'ops logged in at Desk 4'\n",
     "", runAlert},
    {"time", "time faster N", "let simulated time run N times as fast",
     "Reboots, firmware updates and the like then take that much less time. 1 is real time.\n"
     "\n"
     "  zeqctl time faster 60\n",
     "faster", runTime},
    {"completion", "completion bash", "print the completion script of the shell",
     "\n  eval \"$(zeqctl completion bash)\"\n", "bash", runCompletion},
    {"help", "help [COMMAND]", "print help", "", "c", runHelp},
};

const CommandRow* select(Options& options) {
    if (options.words.empty()) {
        if (!options.help) throw Failure(Exit::Usage, "a command is missing; zeqctl --help lists them");
        return findCommand("help");
    }
    if (options.help) {
        options.words.insert(options.words.begin(), "help");
        options.words.resize(2);
    }
    if (const CommandRow* row = findCommand(options.words.front())) return row;
    std::string known;
    for (const CommandRow& row : kCommands) known += std::string(known.empty() ? "" : ", ") + row.name;
    throw Failure(Exit::Usage, "command '" + options.words.front() + "' unknown; use " + known);
}

void runCommand(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
                std::ostream& err) {
    if (!arguments.empty() && arguments.front() == "__complete") {
        // The words behind it are the user's own, half typed.
        Options none = parseOptions({});
        RemoteService service(none.socket, none.timeout);
        Context context{service, none, {arguments.begin() + 1, arguments.end()}, in, out, err};
        return runComplete(context);
    }
    Options options = parseOptions(arguments);
    if (options.version) {
        out << "zeqctl " MIRL_VERSION << '\n';
        return;
    }
    const CommandRow* command = select(options);
    RemoteService service(options.socket, options.timeout);
    Context context{service, options, {}, in, out, err};
    if (!options.words.empty()) context.words.assign(options.words.begin() + 1, options.words.end());
    command->run(context);
}

} // namespace

std::span<const CommandRow> commands() {
    return kCommands;
}

const CommandRow* findCommand(const std::string& name) {
    for (const CommandRow& row : kCommands) {
        if (name == row.name) return &row;
    }
    return nullptr;
}

int run(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err) {
    try {
        runCommand(arguments, in, out, err);
        if (!out.flush()) throw Failure(Exit::NoOutput, "the output could not be written");
        return static_cast<int>(Exit::Done);
    } catch (const Failure& failure) {
        out.flush();
        std::istringstream lines(failure.what());
        for (std::string line; std::getline(lines, line);) err << "zeqctl: " << line << '\n';
        return static_cast<int>(failure.code());
    }
}

} // namespace zeqctl
