// SPDX-License-Identifier: Apache-2.0
/// @file
/// KorString, the string of 16-bit units for user text and paths. The conventions of both string
/// classes are in korcstring.h.
///
/// A character is one 16-bit unit; surrogate pairs aren't treated as one. Null and empty texts
/// compare equal. Comparison, classification and case conversion follow the host's IZelStrSupport
/// when there is one, and otherwise know ASCII only.
#pragma once

#include "zelbasictypes/text/korfloatformat.h"
#include "zelbasictypes/text/textbuffer.h"

#include <iosfwd>
#include <utility>

class BinInput;
class BinOutput;
class KorCString;

/// A string of 16-bit units. It keeps its narrow and UTF-8 forms, once asked for.
class KorString {
public:
    KorString() = default;
    /// Each byte is widened as a signed value: 0x80 and above become 0xFF80 and above.
    KorString(const char* text);
    /// At most `limit` characters; a negative limit means all.
    KorString(const char* text, std::int32_t limit);
    /// A copy of `length` units, or of a terminated text.
    KorString(const char16_t* text, std::int32_t length = -1);
    /// Widens as the constructor of a narrow text does.
    explicit KorString(const KorCString& text);
    /// One character, or a number in decimal digits.
    /// @{
    explicit KorString(char c);
    explicit KorString(char16_t c);
    explicit KorString(int value);
    explicit KorString(long value);
    explicit KorString(long long value);
    explicit KorString(unsigned value);
    explicit KorString(unsigned long value);
    explicit KorString(unsigned long long value);
    /// @}
    /// Formats a number as "%e" when its absolute value is above 1e10, else as "%f".
    /// @{
    explicit KorString(float value);
    explicit KorString(double value);
    /// @}
    /// Formats a number. Of the format of an integer, only the `spec` matters; it is the field
    /// width.
    /// @{
    KorString(int value, const KorFloatFormat& format);
    KorString(long value, const KorFloatFormat& format);
    KorString(long long value, const KorFloatFormat& format);
    KorString(double value, const KorFloatFormat& format);
    /// @}

    /// A copy shares a borrowed text and a borrowed narrow form and copies an owned text; it makes
    /// its own narrow and UTF-8 forms. A moved-from string is null.
    /// @{
    KorString(const KorString& other) : text(other.text.alias()) {
        if (text.isOwned()) copyOwned();
        if (other.narrow.capacity == 0) narrow.data = other.narrow.data;
    }
    KorString(KorString&& other) noexcept
        : text(std::exchange(other.text, {})), narrow(std::exchange(other.narrow, {})),
          utf8(std::exchange(other.utf8, {})) {}
    KorString& operator=(const KorString& other);
    KorString& operator=(KorString&& other) noexcept {
        if (this != &other) {
            releaseAll();
            text = std::exchange(other.text, {});
            narrow = std::exchange(other.narrow, {});
            utf8 = std::exchange(other.utf8, {});
        }
        return *this;
    }
    /// @}
    ~KorString() { releaseAll(); }

    /// Points at `wide` without a copy. `narrowForm`, if given, is the answer of toNarrow() until
    /// the text changes.
    static KorString borrow(const char16_t* wide, const char* narrowForm = nullptr) {
        KorString result;
        result.text.data = const_cast<char16_t*>(wide);
        result.narrow.data = const_cast<char*>(narrowForm);
        return result;
    }
    /// Decodes sequences of one to three bytes, each giving one unit. The whole result is empty
    /// when there is a bad sequence: a longer one, one cut by the terminator, or an overlong
    /// encoding. It is empty for a null or empty source too. The form of continuation bytes isn't
    /// checked, and a stray one decodes to itself without its top bit.
    static KorString fromUtf8(const char* source);
    /// Shared texts: the empty one, and one blank each for separators and for titles.
    /// @{
    static const KorString& sharedEmpty();
    static const KorString& sharedBlank();
    static const KorString& sharedTitle();
    /// @}
    /// Frees the three shared texts, to which no reference may be in use. They are made again on
    /// demand.
    static void freeShared();

    /// The text, terminated; never null.
    const char16_t* c_str() const { return text.data ? text.data : u""; }
    /// The number of units, found by scanning.
    std::int32_t length() const;
    /// The units, valid until the string changes.
    std::u16string_view view() const { return {c_str(), static_cast<std::size_t>(length())}; }
    /// True for a null text too.
    bool isEmpty() const { return !text.data || *text.data == 0; }
    /// True only for a null text.
    bool isNull() const { return !text.data; }
    /// True when the text is in a block of this string's own.
    bool isOwned() const { return text.isOwned(); }
    /// The unit at a position that must be inside the text, or at its terminator.
    char16_t at(std::int32_t i) const { return text.data[i]; }
    /// Writes a unit at a position that must be inside the text; a borrowed text is copied first.
    void setAt(std::int32_t i, char16_t c);
    /// Classifies the character at a position; false outside the text.
    /// @{
    bool isDigitAt(std::int32_t i) const;
    bool isSpaceAt(std::int32_t i) const;
    /// @}

    /// The borrowed narrow form if there is one, else what the host makes of the text, else its
    /// units below 128. Never null.
    ///
    /// A borrowed form lives as long as its storage. Any other is made anew by each call and lives
    /// until the next call, an assignment or the end of this string, whichever comes first; it
    /// doesn't follow changes of the text. The call counts as a write: two threads must not make it
    /// at once.
    const char* toNarrow() const;
    /// The UTF-8 form, with one to three bytes for each unit; surrogates aren't paired. Never null.
    /// It is made anew by each call and lives as long as a result of toNarrow(), or until
    /// KorCString::takeUtf8() takes it.
    const char* toUtf8() const;
    /// Reads a number as the "%i" and "%lf" of the runtime library do, so that the prefixes 0 and
    /// 0x count. `ok`, if given, tells whether there was a number.
    /// @{
    std::int32_t toInt(bool* ok = nullptr) const;
    double toDouble(bool* ok = nullptr) const;
    /// @}

    /// -1, 0 or 1, in the order of operator<.
    std::int32_t compare(const KorString& other) const;
    /// Whether the first n units agree; false when either text is shorter.
    bool startsWith(const KorString& other, std::int32_t n) const;
    /// The sum of the units.
    std::uint32_t hash() const;

    /// The first occurrence at or after `start`. An empty part is found at 0.
    /// @{
    std::int32_t find(const KorString& part, std::int32_t start = 0) const;
    std::int32_t find(char16_t c, std::int32_t start = 0) const;
    /// @}
    /// The last occurrence that starts at or before `limit`; a negative limit is none. An empty
    /// part is found at the end or at the limit, whichever comes first.
    /// @{
    std::int32_t rfind(const KorString& part, std::int32_t limit = -1) const;
    std::int32_t rfind(char16_t c, std::int32_t limit = -1) const;
    /// @}
    /// Whether `part` occurs in the text. Without the host, ignoring case only folds A to Z.
    bool contains(const KorString& part, bool caseSensitive = true) const;

    /// Takes n units of `source`, which may be a part of this string; -1 takes all. With n of 0,
    /// the wide form borrows the whole terminated text instead, which must not be this string's
    /// own.
    /// @{
    void assign(const char* source, std::int32_t n = -1);
    void assign(const char16_t* source, std::int32_t n = -1);
    /// @}
    /// Adds at the end.
    /// @{
    KorString& append(const KorString& other);
    KorString& append(char16_t c);
    /// @}
    /// Removes `count` units at `pos`; a negative count removes the rest.
    void remove(std::int32_t pos, std::int32_t count);
    /// Cuts an owned text after n units; a borrowed or shorter text stays as it is.
    void truncate(std::int32_t n);
    /// Replaces each occurrence of `from`, from left to right; inserted text isn't searched again.
    /// Does nothing for an empty `from`.
    void replaceAll(const KorString& from, const KorString& to);
    /// Fills the placeholders %1 to %9 and %: (the tenth) in one pass. Inserted text isn't scanned,
    /// and the character after any other percent sign is skipped. `args` needs an entry for the
    /// highest placeholder; a null entry counts as empty. A borrowed text stays as it is.
    void substitute(const KorString* const* args);
    /// Exchanges the texts and their narrow and UTF-8 forms, without copying.
    void swap(KorString& other) noexcept;
    /// As for KorCString, except that a block of another kind leaves the text empty.
    /// @{
    bool write(BinOutput& stream) const;
    bool read(BinInput& stream);
    /// @}
    /// Writes or reads a data-model file with this text and nothing else. The result is that of
    /// closing the file. A block of another kind leaves the text empty and isn't a failure.
    /// @{
    [[nodiscard]] bool saveToFile(const KorString& path) const;
    [[nodiscard]] bool loadFromFile(const KorString& path);
    /// @}
    /// Exchanges the text only; the narrow and UTF-8 forms that were made stay where they are.
    void swapText(KorString& other) noexcept;

    /// A copy with the units from `start` up to but not including `end` replaced; a negative end is
    /// the end of the text.
    KorString replaced(std::int32_t start, std::int32_t end, const KorString& with) const;
    /// A part of the text. A negative start is 0, and a negative n takes the rest. When nothing is
    /// left, the result is null.
    /// @{
    KorString mid(std::int32_t start, std::int32_t n) const;
    KorString left(std::int32_t n) const;
    KorString from(std::int32_t start) const;
    /// @}
    /// A copy in the other case. Without the host only A to Z and a to z change.
    /// @{
    KorString toLower() const;
    KorString toUpper() const;
    /// @}
    /// A copy without white space at both ends, where each inner run of white space is one
    /// separator. Without the host this is a plain copy.
    KorString simplify(char16_t separator = u' ') const;
    /// A copy without any white space.
    KorString stripSpace() const;
    /// As KorCString::fit.
    KorString fit(std::int32_t width, std::int32_t mode, std::int32_t dots) const;

private:
    friend class KorCString;

    void releaseAll() {
        if (text.isOwned()) text.release();
        if (narrow.isOwned()) narrow.release();
        if (utf8.isOwned()) utf8.release();
    }
    void copyOwned();
    /// Readies the text for a change: owned, and without a borrowed narrow form.
    void detach();
    void forgetNarrowForm();
    KorString ownedCopy() const;

    zeltext::Buffer<char16_t> text;
    mutable zeltext::Buffer<char> narrow;
    mutable zeltext::Buffer<char> utf8;
};

/// Compares by unit, or as the host decides; a null text is an empty one.
bool operator==(const KorString& a, const KorString& b);
/// Against `b` widened as the constructor does.
bool operator==(const KorString& a, const char* b);
/// The host's order, else by unit; a null text is an empty one.
bool operator<(const KorString& a, const KorString& b);
/// Writes the narrow form.
std::ostream& operator<<(std::ostream& stream, const KorString& text);
