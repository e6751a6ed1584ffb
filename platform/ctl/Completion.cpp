#include "platform/ctl/Command.h"
#include "platform/ctl/RemoteCatalogue.h"

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
    COMPREPLY=($(compgen -W "$(zeqctl __complete "$cur" "${words[@]:1:cword-1}" 2>/dev/null)" -- "$cur"))
    [[ ${COMPREPLY-} == *[=/] ]] && compopt -o nospace
    # The shell takes what stands behind the = for the word, when it breaks words there.
    [[ $cur == *=* && $COMP_WORDBREAKS == *=* ]] && COMPREPLY=("${COMPREPLY[@]#*=}")
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

/// `word`: KEY=, and what has been typed of the value.
void printAssignments(std::ostream& out, const ResourceInfo& info, const std::string& word) {
    const std::string begun = word.substr(0, word.find('='));
    for (const KeyInfo& key : info.keys)
        for (const std::string& value : key.values)
            if (key.key == begun) out << begun << '=' << value << '\n';
}

void printEids(std::ostream& out, RemoteService& service) {
    for (const char* resource : {"swx", "rx", "tx"}) {
        const JsonPtr rows = service.get(resource, nullptr, {"eid"});
        for (std::size_t i = 0; i < json_array_size(rows.get()); ++i)
            if (const char* eid = json_string_value(json_object_get(json_array_get(rows.get(), i), "eid")))
                out << eid << '\n';
    }
}

void printKeys(std::ostream& out, const ResourceInfo& info, const std::string& word, bool assignments) {
    if (word.find('=') != std::string::npos) return printAssignments(out, info, word);
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
    const std::string word = context.words.empty() ? "" : context.words.front();
    if (context.words.size() <= 1) {
        for (const CommandRow& row : commands()) context.out << row.name << '\n';
        for (const OptionRow& row : kOptions) context.out << row.name << '\n';
        return;
    }
    const CommandRow* command = findCommand(context.words[1]);
    const std::string completes = command ? command->completes : "";
    const std::size_t position = context.words.size() - 1;
    RemoteService service(context.options.socket, kPatience);
    try {
        if (position == 1 && completes == "c") {
            for (const CommandRow& row : commands()) context.out << row.name << '\n';
        } else if (position == 1 && completes.starts_with('r')) {
            for (const ResourceInfo& info : readCatalogue(service)) context.out << info.name << '\n';
        } else if (position > 1 && (completes == "rk" || completes == "ra")) {
            printKeys(context.out, readCatalogue(service, context.words[2]), word, completes == "ra");
        } else if (position == 2 && command && command->run == runDevice) {
            printEids(context.out, service);
        } else if (position == 1) {
            printWords(context.out, completes.c_str());
        }
    } catch (const Failure&) {
        // Nothing to offer.
    }
}

} // namespace zeqctl
