#pragma once
// Reads the fields of the program's text files one at a time, in the way the
// files have always been read: fields, not lines.
//
// Blanks (and tabs) before a field are skipped. A text ends at a comma or a
// line end and loses its trailing blanks; in double quotes it may hold commas
// and blanks. A number ends at a blank, a comma or a line end, and the blanks
// behind it plus one comma or line end behind those belong to it, so the
// trailing blank of a written number never reads as an empty field. Empty
// lines before a number are skipped. A line end is CR LF, a lone LF or a lone CR.
//
// Reads are bounded: a field keeps at most maxFieldLength bytes (the rest of a
// longer one is read past and the field refused), and no more than the
// reader's byte limit is ever taken from the stream, so an endless input ends
// in a refusal rather than in growing memory.

#include <cstdint>
#include <istream>
#include <limits>
#include <string>
#include <string_view>

namespace quintline {

enum class FieldFault {
    none,
    endOfFile,      // no field left
    notANumber,     // a number was expected
    outOfRange,     // the number does not fit 16 bits
    tooLong,        // the field is longer than maxFieldLength; value holds its start
    unclosedQuote,  // a quoted text runs to the end of the input
    overLimit,      // the input goes on past the reader's byte limit
};

inline constexpr std::size_t maxFieldLength = 4096;

// At most the first 40 bytes of a field for a message, in double quotes, with
// control characters written as \r, \n, \0 or \xHH and "..." when cut.
std::string fieldExcerpt(std::string_view field);

struct NumberField {
    std::int16_t value = 0;
    FieldFault fault = FieldFault::none;
    std::string text;  // what stood in the field, for messages
};

struct TextField {
    std::string value;
    FieldFault fault = FieldFault::none;
};

class FieldReader {
  public:
    explicit FieldReader(std::istream& in,
                         std::size_t byteLimit = std::numeric_limits<std::size_t>::max())
        : in_(in), byteLimit_(byteLimit) {}

    NumberField readNumber();
    TextField readText();

    // The line (from 1) on which the last field read began.
    int fieldLine() const { return fieldLine_; }
    // Bytes taken from the stream so far.
    std::size_t consumed() const { return consumed_; }

  private:
    int peek();
    int get();
    void skipBlanks();
    bool atLineEnd();
    void takeLineEnd();
    // Drops the blanks behind a field and one comma or line end behind those.
    void finishField();
    // Appends c to a field unless it is full; false once it is.
    bool keep(std::string& field, int c);

    std::istream& in_;
    int line_ = 1;
    int fieldLine_ = 1;
    std::size_t byteLimit_;
    std::size_t consumed_ = 0;
    bool overLimit_ = false;  // the stream holds more than byteLimit_
};

}  // namespace quintline
