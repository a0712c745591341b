#include "boardfile/fieldReader.h"

#include <charconv>
#include <limits>

namespace quintline {
namespace {

constexpr int eof = std::char_traits<char>::eof();

bool isBlank(int c) {
    return c == ' ' || c == '\t';
}

bool isLineEndChar(int c) {
    return c == '\r' || c == '\n';
}

}  // namespace

int FieldReader::peek() {
    return in_.peek();
}

int FieldReader::get() {
    return in_.get();
}

void FieldReader::skipBlanks() {
    while (isBlank(peek())) get();
}

bool FieldReader::atLineEnd() {
    return isLineEndChar(peek());
}

void FieldReader::takeLineEnd() {
    if (get() == '\r' && peek() == '\n') get();
    ++line_;
}

void FieldReader::finishField() {
    skipBlanks();
    if (peek() == ',') {
        get();
    } else if (atLineEnd()) {
        takeLineEnd();
    }
}

NumberField FieldReader::readNumber() {
    NumberField field;
    skipBlanks();
    while (atLineEnd()) {
        takeLineEnd();
        skipBlanks();
    }
    fieldLine_ = line_;
    if (peek() == eof) {
        field.fault = FieldFault::endOfFile;
        return field;
    }
    while (peek() != eof && peek() != ',' && !isBlank(peek()) && !atLineEnd())
        field.text += static_cast<char>(get());
    finishField();

    // An optional sign, then digits and nothing else.
    std::string_view digits = field.text;
    bool negative = false;
    if (!digits.empty() && (digits.front() == '-' || digits.front() == '+')) {
        negative = digits.front() == '-';
        digits.remove_prefix(1);
    }
    if (digits.empty()) {
        field.fault = FieldFault::notANumber;
        return field;
    }
    long long magnitude = 0;
    for (char c : digits) {
        if (c < '0' || c > '9') {
            field.fault = FieldFault::notANumber;
            return field;
        }
        if (magnitude <= 100000) magnitude = magnitude * 10 + (c - '0');
    }
    const long long value = negative ? -magnitude : magnitude;
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max()) {
        field.fault = FieldFault::outOfRange;
        return field;
    }
    field.value = static_cast<std::int16_t>(value);
    return field;
}

TextField FieldReader::readText() {
    TextField field;
    skipBlanks();
    fieldLine_ = line_;
    if (peek() == eof) {
        field.fault = FieldFault::endOfFile;
        return field;
    }
    if (peek() == '"') {
        get();
        while (peek() != eof && peek() != '"') {
            const int c = get();
            if (c == '\n' || (c == '\r' && peek() != '\n')) ++line_;
            field.value += static_cast<char>(c);
        }
        if (peek() == '"') get();
        // Anything between the closing quote and the delimiter is dropped.
        while (peek() != eof && peek() != ',' && !atLineEnd()) get();
    } else {
        while (peek() != eof && peek() != ',' && !atLineEnd())
            field.value += static_cast<char>(get());
        while (!field.value.empty() && isBlank(field.value.back())) field.value.pop_back();
    }
    finishField();
    return field;
}

}  // namespace quintline
