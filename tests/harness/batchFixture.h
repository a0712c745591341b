#pragma once
// A started game with quick scripted searches, a capturing toolkit and a
// scratch directory that is the current directory for the test.

#include <gtest/gtest.h>

#include <string>

#include "game/game.h"
#include "harness/fakes.h"
#include "support/recordingToolkit.h"
#include "support/scratchDirectory.h"
#include "support/scriptedSearches.h"

namespace quintline::testing {

inline const std::string reportHeader =
    "    A(3):B(2) ,  B(2):A(3) ,  A-K-B(3):B(2) , B(2):A-K-B(3) , A(2):B(3) , B(3):A(2) , "
    "A(2):B-KNOW-A(3) , B-KNOW-A(3):A(2) , A(3):B(3) , B(3):A(3) , A-K-B(3):B(3) , "
    "B(3):A-K-B(3) , A(3):B-K-A(3) , B-K-A(3):A(3)\r\n";

inline const std::string zeroSummary =
    " 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 , 0 \r\n";

class BatchTest : public ::testing::Test {
  protected:
    BatchTest() : dir(true), game(toolkit, scriptedSearches()) {
        game.startSession();
        game.newGame();
        toolkit.forget();
    }

    std::string report() const { return readBytes(dir / "result.txt"); }

    ScratchDirectory dir;
    RecordingToolkit toolkit;
    Game game;
};

}  // namespace quintline::testing
