#pragma once
// The command line of pbrain-quintline: which player the engine is.

#include <string>

#include "pbrainSession.h"

namespace quintline::engine {

struct ParsedOptions {
    EngineSettings settings;
    bool run = false;  // false: end at once with exitCode
    int exitCode = 0;  // 0 after --help, 2 for a bad option
    std::string text;  // the help for stdout, or the fault for stderr
};

ParsedOptions parseOptions(int argc, const char* const* argv);

}  // namespace quintline::engine
