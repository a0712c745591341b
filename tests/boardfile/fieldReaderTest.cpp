#include "boardfile/fieldReader.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quintline {
namespace {

std::vector<int> readNumbers(const std::string& text, int count) {
    std::istringstream in(text);
    FieldReader reader(in);
    std::vector<int> out;
    for (int i = 0; i < count; ++i) {
        const NumberField field = reader.readNumber();
        if (field.fault != FieldFault::none) break;
        out.push_back(field.value);
    }
    return out;
}

TEST(FieldReader, NumbersEndAtBlanksCommasAndLineEnds) {
    const std::vector<int> move{1, 8, 8};
    EXPECT_EQ(readNumbers(" 1   8   8 \r\n", 3), move);
    EXPECT_EQ(readNumbers("1,8,8\r\n", 3), move);
    EXPECT_EQ(readNumbers("1 , 8 ,8", 3), move);
    EXPECT_EQ(readNumbers(" 1 \r\n 8 \r\n 8 \r\n", 3), move);
    EXPECT_EQ(readNumbers("1\n8\r8", 3), move);
    EXPECT_EQ(readNumbers("\t+1\t8 8", 3), move);
    EXPECT_EQ(readNumbers("-1   12   9 ", 3), (std::vector<int>{-1, 12, 9}));
    // Empty lines before a number are passed over.
    EXPECT_EQ(readNumbers("1\r\n\r\n  \r\n8\r\n8", 3), move);
}

TEST(FieldReader, NumberFaults) {
    const auto faultOf = [](const std::string& text) {
        std::istringstream in(text);
        FieldReader reader(in);
        return reader.readNumber().fault;
    };
    EXPECT_EQ(faultOf("32767"), FieldFault::none);
    EXPECT_EQ(faultOf("-32768"), FieldFault::none);
    EXPECT_EQ(faultOf("32768"), FieldFault::outOfRange);
    EXPECT_EQ(faultOf("-32769"), FieldFault::outOfRange);
    EXPECT_EQ(faultOf("99999999999999999999"), FieldFault::outOfRange);
    EXPECT_EQ(faultOf("abc"), FieldFault::notANumber);
    EXPECT_EQ(faultOf("15x"), FieldFault::notANumber);
    EXPECT_EQ(faultOf("-"), FieldFault::notANumber);
    EXPECT_EQ(faultOf(",5"), FieldFault::notANumber);
    EXPECT_EQ(faultOf(""), FieldFault::endOfFile);
    EXPECT_EQ(faultOf("  \r\n \r\n"), FieldFault::endOfFile);
}

TEST(FieldReader, TextsEndAtCommasAndLineEndsAndMayBeQuoted) {
    std::istringstream in(
        "Grid Size\r\n  UserTurn  ,next\r\n\"C:\\games\\a,b.txt\"\r\n\"quoted\" tail, "
        "x\r\n\r\nlast");
    FieldReader reader(in);
    EXPECT_EQ(reader.readText().value, "Grid Size");
    EXPECT_EQ(reader.readText().value, "UserTurn");
    EXPECT_EQ(reader.fieldLine(), 2);
    EXPECT_EQ(reader.readText().value, "next");
    EXPECT_EQ(reader.readText().value, "C:\\games\\a,b.txt");
    EXPECT_EQ(reader.fieldLine(), 3);
    EXPECT_EQ(reader.readText().value, "quoted");
    EXPECT_EQ(reader.readText().value, "x");
    // An empty line is an empty text, not skipped as before a number.
    const TextField empty = reader.readText();
    EXPECT_EQ(empty.fault, FieldFault::none);
    EXPECT_EQ(empty.value, "");
    EXPECT_EQ(reader.readText().value, "last");
    EXPECT_EQ(reader.fieldLine(), 6);
    EXPECT_EQ(reader.readText().fault, FieldFault::endOfFile);
}

TEST(FieldReader, TrailingBlankOfAWrittenNumberIsNoEmptyField) {
    std::istringstream in(" 15 \r\nPiece number\r\n 5 \r\n");
    FieldReader reader(in);
    EXPECT_EQ(reader.readNumber().value, 15);
    EXPECT_EQ(reader.readText().value, "Piece number");
    EXPECT_EQ(reader.fieldLine(), 2);
    EXPECT_EQ(reader.readNumber().value, 5);
    EXPECT_EQ(reader.fieldLine(), 3);
    EXPECT_EQ(reader.readText().fault, FieldFault::endOfFile);
}

}  // namespace
}  // namespace quintline
