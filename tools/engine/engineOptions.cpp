#include "engineOptions.h"

#include <CLI/CLI.hpp>

namespace quintline::engine {

ParsedOptions parseOptions(int argc, const char* const* argv) {
    CLI::App app(
        "A Quintline player as a gomoku engine speaking the pbrain protocol (Gomocup) on stdin "
        "and stdout, on the 15 by 15 board and by freestyle rules.",
        "pbrain-quintline");
    app.footer(
        "Kinds: 1 Computer A, 2 Computer B, 3 A knowing B, 4 B knowing A. For kinds 3 and 4 "
        "the engine's colour plays the kind and its opponent is modelled as the other family's "
        "plain player (3 models Computer B, 4 models Computer A), as in quintline-batch "
        "analyse.\nExit status: 0, or 2 for a bad option.");
    ParsedOptions parsed;
    app.add_option("--kind", parsed.settings.kind, "player kind, 1 to 4")
        ->check(CLI::Range(1, 4))
        ->capture_default_str();
    app.add_option("--depth", parsed.settings.depth, "search depth, 1 to 9")
        ->check(CLI::Range(1, 9))
        ->capture_default_str();
    try {
        app.parse(argc, argv);
        parsed.run = true;
    } catch (const CLI::CallForHelp&) {
        parsed.text = app.help();
    } catch (const CLI::ParseError& fault) {
        parsed.exitCode = 2;
        parsed.text = std::string("pbrain-quintline: ") + fault.what() + "\n" +
                      "Run with --help for more information.\n";
    }
    return parsed;
}

}  // namespace quintline::engine
