#include "harness/scheduleFile.h"

#include <charconv>
#include <fstream>
#include <vector>

namespace quintline {
namespace {

struct Word {
    std::string text;
    bool quoted = false;
};

// The words of one line up to a "#" outside quotes; false when a quote is left open.
bool splitLine(std::string_view line, std::vector<Word>& words) {
    std::size_t i = 0;
    while (i < line.size()) {
        const char c = line[i];
        if (c == '#') break;
        if (c == ' ' || c == '\t' || c == '\r') {
            ++i;
        } else if (c == '"') {
            const std::size_t close = line.find('"', i + 1);
            if (close == std::string_view::npos) return false;
            words.push_back({std::string(line.substr(i + 1, close - i - 1)), true});
            i = close + 1;
        } else {
            const std::size_t end = line.find_first_of(" \t\r\"#", i);
            words.push_back({std::string(line.substr(i, end - i)), false});
            i = end == std::string_view::npos ? line.size() : end;
        }
    }
    return true;
}

std::optional<std::int16_t> numberIn(const Word& word, int low, int high) {
    int value = 0;
    const char* end = word.text.data() + word.text.size();
    const auto [stop, error] = std::from_chars(word.text.data(), end, value);
    if (word.quoted || error != std::errc{} || stop != end || value < low || value > high)
        return std::nullopt;
    return static_cast<std::int16_t>(value);
}

bool knowing(PlayerKind kind) {
    return kind == aKnowsB || kind == bKnowsA;
}

// The pairing of one line's words, or the reason it is refused.
std::optional<Pairing> pairingOf(const std::vector<Word>& words, std::string& reason) {
    if ((words.size() != 5 && words.size() != 7) || words[0].quoted) {
        reason = "expected: label black white depthA depthB, then optionally two quoted captions";
        return std::nullopt;
    }
    static constexpr const char* fields[] = {"", "black kind", "white kind", "depthA", "depthB"};
    std::int16_t values[5] = {};
    for (int f = 1; f <= 4; ++f) {
        const int high = f <= 2 ? bKnowsA : maxScheduleDepth;
        const auto value = numberIn(words[static_cast<std::size_t>(f)], 1, high);
        if (!value) {
            reason = std::string(fields[f]) + " \"" + words[static_cast<std::size_t>(f)].text +
                     "\" is not a number from 1 to " + std::to_string(high);
            return std::nullopt;
        }
        values[f] = *value;
    }
    Pairing p{words[0].text, values[3], values[4], values[1], values[2], {}, {}};
    if (knowing(p.black) && knowing(p.white)) {
        reason = "a knowing kind (3 or 4) may play only one colour of a pairing";
        return std::nullopt;
    }
    if (words.size() == 7) {
        if (!words[5].quoted || !words[6].quoted) {
            reason = "the captions must stand in double quotes";
            return std::nullopt;
        }
        p.blackCaption = words[5].text;
        p.whiteCaption = words[6].text;
    } else {
        p.blackCaption = sideCaption(p.black, p.depthA, p.depthB);
        p.whiteCaption = sideCaption(p.white, p.depthA, p.depthB);
    }
    return p;
}

}  // namespace

ScheduleRead parseSchedule(std::istream& in, const std::string& name) {
    std::vector<Pairing> pairings;
    int number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        std::vector<Word> words;
        std::string reason;
        std::optional<Pairing> pairing;
        if (!splitLine(line, words))
            reason = "a caption lacks its closing quote";
        else if (words.empty())
            continue;
        else if (pairings.size() == maxPairings)
            reason = "more than " + std::to_string(maxPairings) + " pairings";
        else
            pairing = pairingOf(words, reason);
        if (!pairing) return {std::nullopt, name + ":" + std::to_string(number) + ": " + reason};
        pairings.push_back(std::move(*pairing));
    }
    if (pairings.empty()) return {std::nullopt, name + ": no pairings"};
    return {Schedule(std::move(pairings)), {}};
}

ScheduleRead loadSchedule(const std::filesystem::path& file) {
    std::error_code ignored;
    std::ifstream in;
    if (!std::filesystem::is_directory(file, ignored)) in.open(file, std::ios::binary);
    if (!in.is_open()) return {std::nullopt, file.string() + " can not be opened"};
    return parseSchedule(in, file.string());
}

std::string scheduleLine(const Pairing& p) {
    return p.label + ' ' + std::to_string(p.black) + ' ' + std::to_string(p.white) + ' ' +
           std::to_string(p.depthA) + ' ' + std::to_string(p.depthB) + " \"" + p.blackCaption +
           "\" \"" + p.whiteCaption + '"';
}

}  // namespace quintline
