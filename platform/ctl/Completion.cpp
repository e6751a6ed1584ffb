#include "platform/ctl/Catalogue.h"
#include "platform/ctl/Command.h"

#include <sstream>

namespace zeqctl {

namespace {

// Words that end in = or / are still to be continued, so no blank follows them.
constexpr const char* kBashScript = R"bash(_zeqctl() {
    local cur words cword
    if declare -F _get_comp_words_by_ref >/dev/null; then
        _get_comp_words_by_ref -n =: cur words cword
    else
        cur=${COMP_WORDS[COMP_CWORD]} words=("${COMP_WORDS[@]}") cword=$COMP_CWORD
    fi
    local IFS=$'\n'
    COMPREPLY=($(compgen -W "$(zeqctl __complete "${words[@]:1:cword-1}" 2>/dev/null)" -- "$cur"))
    [[ ${COMPREPLY-} == *[=/] ]] && compopt -o nospace
    declare -F __ltrim_colon_completions >/dev/null && __ltrim_colon_completions "$cur"
    return 0
}
complete -o default -F _zeqctl zeqctl
)bash";

/// A shell waits for its completions: a service that is slow gives none.
constexpr std::chrono::milliseconds kPatience{300};

void printWords(std::ostream& out, const char* words) {
    std::istringstream list(words);
    for (std::string word; list >> word;) out << word << '\n';
}

void printKeys(std::ostream& out, const ResourceInfo& info, bool assignments) {
    for (const KeyInfo& key : info.keys) {
        if (assignments && key.access == "read") continue;
        out << key.key << (assignments ? "=" : "") << '\n';
    }
}

} // namespace

void runCompletion(Context& context) {
    if (context.words != std::vector<std::string>{"bash"}) throw Failure(Exit::Usage, "use completion bash");
    context.out << kBashScript;
}

void runComplete(Context& context) {
    if (context.words.empty()) {
        for (const CommandRow& row : commands()) context.out << row.name << '\n';
        for (const OptionRow& row : kOptions) context.out << row.name << '\n';
        return;
    }
    const CommandRow* command = findCommand(context.words.front());
    const std::string completes = command ? command->completes : "";
    const std::size_t position = context.words.size();
    Service service(context.options.socket, kPatience);
    try {
        if (position == 1 && completes == "c") {
            for (const CommandRow& row : commands()) context.out << row.name << '\n';
        } else if (position == 1 && completes.starts_with('r')) {
            for (const ResourceInfo& info : readCatalogue(service)) context.out << info.name << '\n';
        } else if (position > 1 && (completes == "rk" || completes == "ra")) {
            printKeys(context.out, readCatalogue(service, context.words[1]), completes == "ra");
        } else if (position == 1) {
            printWords(context.out, completes.c_str());
        }
    } catch (const Failure&) {
        // Nothing to offer.
    }
}

} // namespace zeqctl
