// SPDX-License-Identifier: Apache-2.0
// KorCString, the narrow string for names, keys and messages in code.
//
// Both string classes share these conventions. A text is a terminated buffer from the string pool,
// or a borrowed one that costs nothing and must outlive the string and its copies; a literal does.
// The length is found by scanning. Lengths and positions count characters, from 0. A null source
// gives a null text. A position outside the text, a negative limit ("all") and a limit past the
// end never touch memory outside the text; only `at` and `setAt` trust their caller. Searches
// answer -1 when nothing is found. One object belongs to one thread at a time.
#pragma once

#include "zelbasictypes/text/textbuffer.h"

#include <cstring>
#include <iosfwd>
#include <utility>

class BinInput;
class BinOutput;
class KorString;

class KorCString {
public:
    KorCString() = default;
    KorCString(const char* text);
    /// At most `limit` characters; a negative limit means all.
    KorCString(const char* text, std::int32_t limit);
    /// The low 8 bits of each code unit; `length` may be -1 for a terminated text.
    explicit KorCString(const char16_t* text, std::int32_t length = -1);
    explicit KorCString(char c);
    explicit KorCString(std::int32_t value);
    /// "%f", or with `compact` the shortest text that reads back as exactly as the longest one. The
    /// compact form lets std::out_of_range pass when one of its tries leaves the range of the type.
    explicit KorCString(float value, bool compact = false);
    explicit KorCString(double value, bool compact = false);

    KorCString(const KorCString& other) : buffer(other.buffer.alias()) {
        if (buffer.isOwned()) copyOwned();
    }
    KorCString(KorCString&& other) noexcept : buffer(std::exchange(other.buffer, {})) {}
    KorCString& operator=(const KorCString& other);
    KorCString& operator=(KorCString&& other) noexcept {
        if (this != &other) {
            buffer.release();
            buffer = std::exchange(other.buffer, {});
        }
        return *this;
    }
    ~KorCString() {
        if (buffer.isOwned()) buffer.release();
    }

    /// Points at `text` without a copy.
    static KorCString borrow(const char* text) {
        KorCString result;
        result.buffer.data = const_cast<char*>(text);
        return result;
    }
    /// Null texts count as empty ones; the result isn't null.
    static KorCString concat(const KorCString& a, const KorCString& b);
    static KorCString concat(const KorCString& a, const KorCString& b, const KorCString& c);
    /// `texts` ends with a null pointer; without an array the result is null.
    static KorCString concat(const char* const* texts);
    static KorCString concat(const KorCString& text, std::int32_t number);
    /// The one empty text that all share.
    static const KorCString& sharedEmpty();

    /// The text itself: null for a null string.
    const char* c_str() const { return buffer.data; }
    std::int32_t length() const {
        return buffer.data ? static_cast<std::int32_t>(std::strlen(buffer.data)) : 0;
    }
    std::string_view view() const { return {buffer.data, static_cast<std::size_t>(length())}; }
    bool isEmpty() const { return !buffer.data || *buffer.data == 0; }
    /// True when the text lies in a block of this string's own.
    bool isOwned() const { return buffer.isOwned(); }
    char at(std::int32_t i) const { return buffer.data[i]; }
    void setAt(std::int32_t i, char c);
    /// Throws what the standard conversion throws: std::invalid_argument with the text "invalid
    /// stof argument" and std::out_of_range with "stof argument out of range".
    float toFloat() const;

    /// -1, 0 or 1, by bytes as unsigned values; a null text comes before anything else.
    std::int32_t compare(const KorCString& other) const;
    /// The name hash: 0 for a null text.
    std::uint32_t hash() const;

    /// The first occurrence at or after `start`. A negative start is an assertion.
    std::int32_t find(const char* part, std::int32_t start = 0) const;
    std::int32_t find(const KorCString& part, std::int32_t start = 0) const {
        return find(part.c_str(), start);
    }
    std::int32_t find(char c, std::int32_t start = 0) const;
    /// The last occurrence; an empty part is found at the end.
    std::int32_t rfind(char c) const;
    std::int32_t rfind(const KorCString& part) const;

    /// Takes `length` characters, -1 for all; the text may be a part of this string.
    void assign(const char* text, std::int32_t length = -1);
    KorCString& append(const char* text);
    KorCString& append(const KorCString& other) { return append(other.c_str()); }
    KorCString& append(char c);
    /// Replaces `count` characters at `pos`; nothing when `pos` lies outside the text.
    void replaceRange(std::int32_t pos, std::int32_t count, const KorCString& with);
    /// Replaces each `from`, left to right; inserted text isn't searched again. Nothing for an
    /// empty `from`.
    void replaceAll(const KorCString& from, const KorCString& to);
    void replaceChar(char a, char b);
    /// In place, by the runtime library's rules.
    void toLower();
    void toUpper();
    void reverse();
    /// Copies a borrowed text into a block of this string's own.
    void detach();
    void swap(KorCString& other) noexcept { std::swap(buffer, other.buffer); }
    /// Gives its own text up and takes the UTF-8 form of `source`, block and all: what toUtf8 of
    /// `source` gave before is now a part of this string.
    void takeUtf8(const KorString& source);
    /// One line of up to 4096 characters, without its line feed; false when the stream failed,
    /// which a longer line also is.
    bool readLine(std::istream& stream);
    /// As a block of a data-model file. The result is the state of the stream, which a block of
    /// another kind doesn't spoil. Not for two threads at once, whatever the strings and streams.
    bool write(BinOutput& stream) const;
    bool read(BinInput& stream);

    /// A copy without white space at both ends.
    KorCString trim() const;
    /// As trim, and each inner run of white space becomes one separator. Never null.
    KorCString simplify(char separator = ' ') const;
    /// At most `width` characters, the cut marked by `dots` full stops: at the end (mode 0), in
    /// front (1) or in the middle (2). A width not above `dots` gives `width` full stops; negative
    /// numbers count as 0.
    KorCString fit(std::int32_t width, std::int32_t mode, std::int32_t dots) const;

private:
    friend class ZelFileRead;

    void copyOwned();
    /// Takes `length` bytes off a stream; false, and null, when no text can be that long.
    bool readBytes(BinInput& stream, std::int64_t length);

    zeltext::Buffer<char> buffer;
};

/// Null equals only null.
bool operator==(const KorCString& a, const KorCString& b);
bool operator==(const KorCString& a, const char* b);
bool operator<(const KorCString& a, const KorCString& b);
/// Writes the text, nothing for a null one.
std::ostream& operator<<(std::ostream& stream, const KorCString& text);
