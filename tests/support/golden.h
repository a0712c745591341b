#pragma once
// Compares a text with its reviewed golden file. Run with QUINTLINE_UPDATE_GOLDEN
// set to rewrite the files instead; a change of design then shows as their diff.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace quintline::testing {

inline void expectGolden(const std::string& name, const std::string& text) {
    const std::string path = QUINTLINE_GOLDEN_DIR "/" + name + ".txt";
    if (std::getenv("QUINTLINE_UPDATE_GOLDEN") != nullptr) {
        ASSERT_TRUE(std::ofstream(path) << text) << path;
        return;
    }
    std::stringstream golden;
    ASSERT_TRUE(golden << std::ifstream(path).rdbuf()) << path;
    EXPECT_EQ(text, golden.str()) << path;
}

}  // namespace quintline::testing
