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

std::string fieldExcerpt(std::string_view field) {
    constexpr std::size_t shown = 40;
    static constexpr char hex[] = "0123456789abcdef";
    std::string out = "\"";
    for (const char c : field.substr(0, shown)) {
        const auto u = static_cast<unsigned char>(c);
        if (c == '\r')
            out += "\\r";
        else if (c == '\n')
            out += "\\n";
        else if (c == '\0')
            out += "\\0";
        else if (u < 0x20 || u == 0x7f)
            out += std::string("\\x") + hex[u >> 4] + hex[u & 15];
        else
            out += c;
    }
    out += field.size() > shown ? "...\"" : "\"";
    return out;
}

int FieldReader::peek() {
    if (consumed_ >= byteLimit_) {
        overLimit_ = overLimit_ || in_.peek() != eof;
        return eof;
    }
    return in_.peek();
}

int FieldReader::get() {
    const int c = peek();
    if (c == eof) return eof;
    ++consumed_;
    return in_.get();
}

bool FieldReader::keep(std::string& field, int c) {
    if (field.size() >= maxFieldLength) return false;
    field += static_cast<char>(c);
    return true;
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
        field.fault = overLimit_ ? FieldFault::overLimit : FieldFault::endOfFile;
        return field;
    }
    bool whole = true;
    while (peek() != eof && peek() != ',' && !isBlank(peek()) && !atLineEnd())
        whole = keep(field.text, get()) && whole;
    finishField();
    if (overLimit_ || !whole) {
        field.fault = overLimit_ ? FieldFault::overLimit : FieldFault::tooLong;
        return field;
    }

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
        field.fault = overLimit_ ? FieldFault::overLimit : FieldFault::endOfFile;
        return field;
    }
    bool whole = true;
    bool closed = true;
    if (peek() == '"') {
        get();
        while (peek() != eof && peek() != '"') {
            const int c = get();
            if (c == '\n' || (c == '\r' && peek() != '\n')) ++line_;
            whole = keep(field.value, c) && whole;
        }
        closed = peek() == '"';
        if (closed) get();
        // Anything between the closing quote and the delimiter is dropped.
        while (peek() != eof && peek() != ',' && !atLineEnd()) get();
    } else {
        while (peek() != eof && peek() != ',' && !atLineEnd())
            whole = keep(field.value, get()) && whole;
        while (whole && !field.value.empty() && isBlank(field.value.back())) field.value.pop_back();
    }
    finishField();
    if (overLimit_)
        field.fault = FieldFault::overLimit;
    else if (!closed)
        field.fault = FieldFault::unclosedQuote;
    else if (!whole)
        field.fault = FieldFault::tooLong;
    return field;
}

}  // namespace quintline
