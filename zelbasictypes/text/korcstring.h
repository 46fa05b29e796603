// SPDX-License-Identifier: Apache-2.0
/// @file
/// KorCString, the narrow string for names, keys and messages in code.
///
/// Both string classes share these conventions. A text is a terminated buffer, either a block of
/// the string pool or a borrowed text. Borrowing costs nothing, but the borrowed text must outlive
/// the string and all its copies, as a literal does.
///
/// The length is found by scanning. Lengths and positions count characters, from 0. A negative
/// limit or count means "all". A null source gives a null text. Positions outside the text and
/// limits past its end never touch memory outside the text; only `at` and `setAt` trust their
/// caller. Searches return -1 when nothing is found.
///
/// An object may be used by one thread at a time, different objects by different threads. When
/// memory runs out the process ends; see outofmemory.h.
#pragma once

#include "zelbasictypes/text/textbuffer.h"

#include <cstring>
#include <iosfwd>
#include <utility>

class BinInput;
class BinOutput;
class KorString;

/// A narrow string. Its characters are bytes without a fixed encoding; where it matters, the
/// members say which one they use.
class KorCString {
public:
    KorCString() = default;
    /// A copy of a terminated text.
    KorCString(const char* text);
    /// At most `limit` characters; a negative limit means all.
    KorCString(const char* text, std::int32_t limit);
    /// The low 8 bits of each code unit; `length` may be -1 for a terminated text.
    explicit KorCString(const char16_t* text, std::int32_t length = -1);
    /// One character, or a number in decimal digits.
    /// @{
    explicit KorCString(char c);
    explicit KorCString(std::int32_t value);
    /// @}
    /// Formats a number as "%f", or with `compact` as the shortest text that reads back as exactly
    /// as the longest one. The compact form throws std::out_of_range when one of its attempts
    /// leaves the range of the type.
    /// @{
    explicit KorCString(float value, bool compact = false);
    explicit KorCString(double value, bool compact = false);
    /// @}

    /// A copy shares a borrowed text and copies an owned one. A moved-from string is null.
    /// @{
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
    /// @}
    ~KorCString() {
        if (buffer.isOwned()) buffer.release();
    }

    /// Points at `text` without a copy.
    static KorCString borrow(const char* text) {
        KorCString result;
        result.buffer.data = const_cast<char*>(text);
        return result;
    }
    /// The texts one after the other. A null text counts as empty, and the result isn't null.
    /// @{
    static KorCString concat(const KorCString& a, const KorCString& b);
    static KorCString concat(const KorCString& a, const KorCString& b, const KorCString& c);
    /// @}
    /// The texts up to a null pointer one after the other. Without an array the result is null.
    static KorCString concat(const char* const* texts);
    /// The text followed by the number in decimal digits.
    static KorCString concat(const KorCString& text, std::int32_t number);
    /// The shared empty text.
    static const KorCString& sharedEmpty();

    /// The text itself: null for a null string.
    const char* c_str() const { return buffer.data; }
    /// The number of characters, found by scanning; 0 for a null text.
    std::int32_t length() const {
        return buffer.data ? static_cast<std::int32_t>(std::strlen(buffer.data)) : 0;
    }
    /// The characters, valid until the string changes.
    std::string_view view() const { return {buffer.data, static_cast<std::size_t>(length())}; }
    /// True for a null text too.
    bool isEmpty() const { return !buffer.data || *buffer.data == 0; }
    /// True when the text is in a block of this string's own.
    bool isOwned() const { return buffer.isOwned(); }
    /// The character at a position that must be inside the text, or at its terminator.
    char at(std::int32_t i) const { return buffer.data[i]; }
    /// Writes a character at a position that must be inside the text; a borrowed text is copied
    /// first.
    void setAt(std::int32_t i, char c);
    /// Reads a number. Throws as the standard conversion does: std::invalid_argument ("invalid stof
    /// argument") and std::out_of_range ("stof argument out of range").
    float toFloat() const;

    /// -1, 0 or 1, by bytes as unsigned values; a null text comes before anything else.
    std::int32_t compare(const KorCString& other) const;
    /// The hash of names; 0 for a null text.
    std::uint32_t hash() const;

    /// The first occurrence at or after `start`. A negative start fails an assertion.
    /// @{
    std::int32_t find(const char* part, std::int32_t start = 0) const;
    std::int32_t find(const KorCString& part, std::int32_t start = 0) const {
        return find(part.c_str(), start);
    }
    std::int32_t find(char c, std::int32_t start = 0) const;
    /// @}
    /// The last occurrence. An empty part is found at the end.
    /// @{
    std::int32_t rfind(char c) const;
    std::int32_t rfind(const KorCString& part) const;
    /// @}

    /// Takes `length` characters of `text`, which may be a part of this string; -1 takes all.
    void assign(const char* text, std::int32_t length = -1);
    /// Adds at the end; the text may be a part of this string. Null adds nothing.
    /// @{
    KorCString& append(const char* text);
    KorCString& append(const KorCString& other) { return append(other.c_str()); }
    KorCString& append(char c);
    /// @}
    /// Replaces `count` characters at `pos`; does nothing when `pos` is outside the text.
    void replaceRange(std::int32_t pos, std::int32_t count, const KorCString& with);
    /// Replaces each occurrence of `from`, from left to right; inserted text isn't searched again.
    /// Does nothing for an empty `from`.
    void replaceAll(const KorCString& from, const KorCString& to);
    /// Replaces each `a` by `b`.
    void replaceChar(char a, char b);
    /// Changes the case in place, by the rules of the runtime library.
    /// @{
    void toLower();
    void toUpper();
    /// @}
    /// Reverses the order of the characters in place.
    void reverse();
    /// Copies a borrowed text into a block of this string's own.
    void detach();
    /// Exchanges the texts, without copying.
    void swap(KorCString& other) noexcept { std::swap(buffer, other.buffer); }
    /// Replaces this text by the UTF-8 form of `source` and takes over its block: what toUtf8() of
    /// `source` returned before belongs to this string now.
    void takeUtf8(const KorString& source);
    /// Reads one line of up to 4096 characters, without its line feed. False when the stream has
    /// failed, as it does for a longer line.
    bool readLine(std::istream& stream);
    /// The text as a block of a data-model file. The result is the state of the stream; a block of
    /// another kind doesn't spoil it. Two threads must not do this at once, whatever the strings
    /// and streams.
    /// @{
    bool write(BinOutput& stream) const;
    bool read(BinInput& stream);
    /// @}

    /// A copy without white space at both ends.
    KorCString trim() const;
    /// As trim, and each inner run of white space becomes one separator. Never null.
    KorCString simplify(char separator = ' ') const;
    /// At most `width` characters, where `dots` full stops mark the cut: at the end (mode 0), at
    /// the front (1) or in the middle (2). A width not above `dots` gives `width` full stops.
    /// Negative numbers count as 0.
    KorCString fit(std::int32_t width, std::int32_t mode, std::int32_t dots) const;

private:
    friend class ZelFileRead;

    void copyOwned();
    /// Takes `length` bytes off a stream; false, and null, when no text can be that long.
    bool readBytes(BinInput& stream, std::int64_t length);

    zeltext::Buffer<char> buffer;
};

/// Compares bytes as unsigned values. Null equals only null and precedes every other text.
/// @{
bool operator==(const KorCString& a, const KorCString& b);
bool operator==(const KorCString& a, const char* b);
bool operator<(const KorCString& a, const KorCString& b);
/// @}
/// Writes the text; nothing for a null text.
std::ostream& operator<<(std::ostream& stream, const KorCString& text);
