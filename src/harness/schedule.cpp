#include "harness/schedule.h"

#include <cassert>

namespace quintline {

Schedule::Schedule(std::vector<Pairing> pairings) : pairings_(std::move(pairings)) {
    assert(!pairings_.empty() && pairings_.size() <= maxPairings);
}

const Schedule& Schedule::fixed() {
    static const Schedule fixedSchedule({
        {"A(3):B(2)", 3, 2, computerA, computerB, "Computer A 3", "Computer B 2"},
        {"B(2):A(3)", 3, 2, computerB, computerA, "Computer B 2", "Computer A 3"},
        {"A-K-B(3):B(2)", 3, 2, aKnowsB, computerB, "Computer A Know B 3", "Computer B 2"},
        {"B(2):A-K-B(3)", 3, 2, computerB, aKnowsB, "Computer B 2", "Computer A know B 3"},
        {"A(2):B(3)", 2, 3, computerA, computerB, "Computer A 2", "Computer B 3"},
        {"B(3):A(2)", 2, 3, computerB, computerA, "Computer B 3", "Computer A 2"},
        {"A(2):B-KNOW-A(3)", 2, 3, computerA, bKnowsA, "Computer A 2", "Computer B know A 3"},
        {"B-KNOW-A(3):A(2)", 2, 3, bKnowsA, computerA, "Computer B know A 3", "Computer A 2 "},
        {"A(3):B(3)", 3, 3, computerA, computerB, "Computer A 3", "Computer B 3"},
        {"B(3):A(3)", 3, 3, computerB, computerA, "Computer B 3", "Computer A 3"},
        {"A-K-B(3):B(3)", 3, 3, aKnowsB, computerB, "Computer A Know B 3", "Computer B 3"},
        {"B(3):A-K-B(3)", 3, 3, computerB, aKnowsB, "Computer B 3", "Computer A know B 3"},
        {"A(3):B-K-A(3)", 3, 3, computerA, bKnowsA, "Computer A 3", "Computer B know A 3"},
        {"B-K-A(3):A(3)", 3, 3, bKnowsA, computerA, "Computer B Know A 3", "Computer A 3"},
    });
    return fixedSchedule;
}

std::string Schedule::header() const {
    const auto& fixedPairings = fixed().pairings_;
    bool fixedLabels = pairings_.size() == fixedPairings.size();
    for (std::size_t n = 0; fixedLabels && n < pairings_.size(); ++n)
        fixedLabels = pairings_[n].label == fixedPairings[n].label;
    if (fixedLabels) return std::string(headerLiteral);
    std::string header = "    ";
    for (std::size_t n = 0; n < pairings_.size(); ++n)
        header.append(n > 0 ? " , " : "").append(pairings_[n].label);
    return header;
}

bool swapsColours(const Pairing& first, const Pairing& second) {
    return first.black == second.white && first.white == second.black &&
           first.depthA == second.depthA && first.depthB == second.depthB;
}

std::string sideCaption(PlayerKind kind, std::int16_t depthA, std::int16_t depthB) {
    static constexpr std::string_view names[] = {"User", "Computer A", "Computer B",
                                                 "Computer A know B", "Computer B know A"};
    const std::int16_t depth = isAFamily(kind) ? depthA : depthB;
    return std::string(names[kind]) + ' ' + std::to_string(depth);
}

}  // namespace quintline
