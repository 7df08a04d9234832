// SPDX-License-Identifier: MIT
#include "CLI/LineWords.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

namespace {

struct OptionWord {
    std::string_view name;
    bool takesValue;
};

constexpr std::array kOptions = {
    OptionWord{"--address", true},
    OptionWord{"-a", true},
    OptionWord{"--printer", true},
    OptionWord{"--uri", true},
    OptionWord{"--port", true},
    OptionWord{"--package", true},
    OptionWord{"-p", true},
    OptionWord{"--deadline", true},
    OptionWord{"--stall-limit", true},
    OptionWord{"--lock-timeout", true},
    OptionWord{"--sha256", true},
    OptionWord{"--key", true},
    OptionWord{"--trace", true},
    OptionWord{"--only", true},
    OptionWord{"--output", true},
    OptionWord{"-o", true},
    OptionWord{"--from", true},
    OptionWord{"--results", true},
    OptionWord{"--jobs", true},
    OptionWord{"--canary", true},
    OptionWord{"--max-failures", true},
    OptionWord{"--deadline-each", true},
    OptionWord{"--verify", true},
    OptionWord{"--all", false},
    OptionWord{"--skip-same", false},
    OptionWord{"--yes", false},
    OptionWord{"-y", false},
    OptionWord{"--json", false},
    OptionWord{"--quiet", false},
    OptionWord{"-q", false},
    OptionWord{"--verbose", false},
    OptionWord{"-v", false},
    OptionWord{"--no-color", false},
    OptionWord{"--help", false},
    OptionWord{"-h", false},
    OptionWord{"--version", false},
};

// A word with more changed letters counts as another word.
constexpr std::size_t kMostChanges = 2;

const OptionWord* optionOf(std::string_view name)
{
    const auto* found = std::find_if(kOptions.begin(), kOptions.end(),
                                     [name](const auto& each) { return each.name == name; });
    return found != kOptions.end() ? found : nullptr;
}

// The number of letters to change, insert or delete to turn one word into the other.
std::size_t changesBetween(std::string_view left, std::string_view right)
{
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), 0U);
    for (std::size_t i = 1; i <= left.size(); ++i) {
        auto diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            const auto replaced = diagonal + (left[i - 1] == right[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
        }
    }
    return row.back();
}

// "--address" of "--address=A", "-a" of "-aA".
std::string_view nameIn(std::string_view option)
{
    return option.substr(0, option.starts_with("--") ? option.find('=') : 2);
}

// Takes one option word; returns whether the next word is its value.
bool takeOption(std::string_view word, LineWords& words)
{
    const bool isLong = word.starts_with("--");
    const auto equals = isLong ? word.find('=') : std::string_view::npos;
    const auto name = nameIn(word);
    const auto* option = optionOf(name);
    if (option == nullptr && words.unknown.empty())
        words.unknown = word;
    if (option == nullptr || !option->takesValue)
        return false;
    if (equals != std::string_view::npos) {
        if (equals + 1 == word.size() && words.emptyOption.empty())
            words.emptyOption = name;
        return false;
    }
    return isLong || word.size() == 2; // "-pFOLDER" already has a value
}

} // namespace

LineWords lineWords(int argc, const char* const* argv)
{
    LineWords words;
    for (int i = 1; i < argc; ++i) {
        const std::string_view word(argv[i]);
        words.wantsHelp = words.wantsHelp || word == "-h" || word == "--help";
        words.wantsJson = words.wantsJson || word == "--json";
    }
    for (int i = 1; i < argc; ++i) {
        const std::string_view word(argv[i]);
        if (word.size() > 1 && word.starts_with('-')) {
            i += takeOption(word, words) ? 1 : 0;
            continue;
        }
        const auto command = commandNamed(word);
        if (words.command == Command::none && command != Command::none)
            words.command = command;
        else if (words.command != Command::history && words.unknown.empty())
            words.unknown = word;
    }
    return words;
}

std::vector<std::string> withoutWords(int argc, const char* const* argv,
                                      std::span<const std::string_view> unwanted)
{
    std::vector<std::string> kept;
    for (int i = 1; i < argc; ++i) {
        const std::string_view word(argv[i]);
        if (word.size() < 2 || !word.starts_with('-'))
            continue; // the command
        LineWords unused;
        const bool hasValue = takeOption(word, unused) && i + 1 < argc;
        const auto name = nameIn(word);
        const bool isWanted = std::find(unwanted.begin(), unwanted.end(), name) == unwanted.end();
        if (isWanted)
            kept.emplace_back(word);
        i += hasValue ? 1 : 0;
        if (isWanted && hasValue)
            kept.emplace_back(argv[i]);
    }
    return kept;
}

std::string suggestionFor(std::string_view unknown)
{
    unknown = unknown.substr(0, unknown.find('='));
    std::vector<std::string_view> known;
    known.reserve(std::size(kOptions) + std::size(kCommands));
    for (const auto& option : kOptions)
        known.push_back(option.name);
    for (const auto command : kCommands)
        known.emplace_back(commandName(command));
    std::string_view best;
    auto fewest = kMostChanges + 1;
    for (const auto word : known) {
        const auto changes = changesBetween(unknown, word);
        if (changes < fewest && changes + 1 < word.size()) {
            fewest = changes;
            best = word;
        }
    }
    return best.empty() ? "" : "Did you mean '" + std::string(best) + "'?";
}
