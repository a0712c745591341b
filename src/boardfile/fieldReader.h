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

#include <cstdint>
#include <istream>
#include <string>

namespace quintline {

enum class FieldFault {
    none,
    endOfFile,   // no field left
    notANumber,  // a number was expected
    outOfRange,  // the number does not fit 16 bits
};

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
    explicit FieldReader(std::istream& in) : in_(in) {}

    NumberField readNumber();
    TextField readText();

    // The line (from 1) on which the last field read began.
    int fieldLine() const { return fieldLine_; }

  private:
    int peek();
    int get();
    void skipBlanks();
    bool atLineEnd();
    void takeLineEnd();
    // Drops the blanks behind a field and one comma or line end behind those.
    void finishField();

    std::istream& in_;
    int line_ = 1;
    int fieldLine_ = 1;
};

}  // namespace quintline
