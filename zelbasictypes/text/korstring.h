// SPDX-License-Identifier: Apache-2.0
// KorString, the string of 16-bit units for user text and paths; korcstring.h has the conventions.
//
// A unit is a character: there are no code points above the first 65536. Null and empty compare
// equal. Comparison, classification and case conversion follow the host's IZelStrSupport when it
// is there and otherwise know ASCII only.
#pragma once

#include "zelbasictypes/text/korfloatformat.h"
#include "zelbasictypes/text/textbuffer.h"

#include <iosfwd>
#include <utility>

class BinInput;
class BinOutput;
class KorCString;

class KorString {
public:
    KorString() = default;
    /// Each byte is widened as a signed value: 0x80 and above become 0xFF80 and above.
    KorString(const char* text);
    /// At most `limit` characters; a negative limit means all.
    KorString(const char* text, std::int32_t limit);
    KorString(const char16_t* text, std::int32_t length = -1);
    explicit KorString(const KorCString& text);
    explicit KorString(char c);
    explicit KorString(char16_t c);
    explicit KorString(int value);
    explicit KorString(long value);
    explicit KorString(long long value);
    explicit KorString(unsigned value);
    explicit KorString(unsigned long value);
    explicit KorString(unsigned long long value);
    /// "%e" above an absolute value of 1e10, else "%f".
    explicit KorString(float value);
    explicit KorString(double value);
    /// The format's `spec` is the field width; its letters don't matter here.
    KorString(int value, const KorFloatFormat& format);
    KorString(long value, const KorFloatFormat& format);
    KorString(long long value, const KorFloatFormat& format);
    KorString(double value, const KorFloatFormat& format);

    /// A borrowed text and a borrowed narrow form are shared; made forms aren't copied.
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
    ~KorString() { releaseAll(); }

    /// Points at `wide` without a copy. `narrowForm`, when given, is what toNarrow answers until
    /// the text is changed.
    static KorString borrow(const char16_t* wide, const char* narrowForm = nullptr) {
        KorString result;
        result.text.data = const_cast<char16_t*>(wide);
        result.narrow.data = const_cast<char*>(narrowForm);
        return result;
    }
    /// Sequences of one to three bytes, each giving one unit. The first bad sequence (a longer one,
    /// one cut by the terminator, a value written too long) makes the whole result empty, and so
    /// does a null or empty source. The form of following bytes isn't checked, and a stray one
    /// stands for itself without its top bit.
    static KorString fromUtf8(const char* source);
    /// Texts that all share: the empty one, and one blank each for separators and for titles.
    static const KorString& sharedEmpty();
    static const KorString& sharedBlank();
    static const KorString& sharedTitle();
    /// Frees the three; no reference to them may be in use. They are made anew when asked for.
    static void freeShared();

    /// Never null.
    const char16_t* c_str() const { return text.data ? text.data : u""; }
    std::int32_t length() const;
    std::u16string_view view() const { return {c_str(), static_cast<std::size_t>(length())}; }
    bool isEmpty() const { return !text.data || *text.data == 0; }
    bool isNull() const { return !text.data; }
    /// True when the text lies in a block of this string's own.
    bool isOwned() const { return text.isOwned(); }
    char16_t at(std::int32_t i) const { return text.data[i]; }
    void setAt(std::int32_t i, char16_t c);
    /// False outside the text.
    bool isDigitAt(std::int32_t i) const;
    bool isSpaceAt(std::int32_t i) const;

    /// The borrowed narrow form, else what the host makes of the text, else its units below 128.
    /// Never null. A borrowed form lives as long as its storage. Any other is made anew by each
    /// call and lives until the next one, an assignment or the end of this string, whichever comes
    /// first; it doesn't follow changes. The call counts as a write: not from two threads at once.
    const char* toNarrow() const;
    /// One to three bytes a unit; units aren't paired into code points. Never null, and made anew
    /// by each call; lifetime as of toNarrow, and takeUtf8 takes the text away.
    const char* toUtf8() const;
    /// As the runtime library's "%i" and "%lf" read it, so 0 and 0x are prefixes. `ok`, when given,
    /// tells whether there was a number.
    std::int32_t toInt(bool* ok = nullptr) const;
    double toDouble(bool* ok = nullptr) const;

    /// -1, 0 or 1.
    std::int32_t compare(const KorString& other) const;
    /// The first n units agree; false when either text ends before that.
    bool startsWith(const KorString& other, std::int32_t n) const;
    /// The sum of the units.
    std::uint32_t hash() const;

    /// The first occurrence at or after `start`; an empty part is found at 0.
    std::int32_t find(const KorString& part, std::int32_t start = 0) const;
    std::int32_t find(char16_t c, std::int32_t start = 0) const;
    /// The last occurrence that starts at or before `limit`, negative for no limit. An empty part
    /// is found at the end or the limit, whichever comes first.
    std::int32_t rfind(const KorString& part, std::int32_t limit = -1) const;
    std::int32_t rfind(char16_t c, std::int32_t limit = -1) const;
    bool contains(const KorString& part, bool caseSensitive = true) const;

    /// Takes n units, -1 for all; the text may be a part of this string. With n of 0 the wide form
    /// borrows the pointer, terminated text and all, which then must not be this string's own.
    void assign(const char* source, std::int32_t n = -1);
    void assign(const char16_t* source, std::int32_t n = -1);
    KorString& append(const KorString& other);
    KorString& append(char16_t c);
    /// Closes the gap; a negative count means all.
    void remove(std::int32_t pos, std::int32_t count);
    /// Cuts an owned text at n; a borrowed or shorter one stays.
    void truncate(std::int32_t n);
    /// Replaces each `from`, left to right; inserted text isn't searched again. Nothing for an
    /// empty `from`.
    void replaceAll(const KorString& from, const KorString& to);
    /// Fills the placeholders %1 to %9 and %: (the tenth) in one pass; inserted text isn't scanned,
    /// and the character behind any other percent sign is skipped. `args` needs an entry for the
    /// highest placeholder; a null entry counts as empty. A borrowed text stays as it is.
    void substitute(const KorString* const* args);
    void swap(KorString& other) noexcept;
    /// As KorCString's; a block of another kind leaves the text empty.
    bool write(BinOutput& stream) const;
    bool read(BinInput& stream);
    /// A data-model file with this text and nothing else. The result is that of closing the file; a
    /// block of another kind in it leaves the text empty and is no failure.
    bool saveToFile(const KorString& path) const;
    bool loadFromFile(const KorString& path);
    /// Exchanges the text only; made narrow and UTF-8 blocks stay where they are.
    void swapText(KorString& other) noexcept;

    /// The text before `start`, `with`, and the text from `end` on; a negative end is the end of
    /// the text.
    KorString replaced(std::int32_t start, std::int32_t end, const KorString& with) const;
    /// A negative start is 0, a negative n means all; with nothing left the result is null.
    KorString mid(std::int32_t start, std::int32_t n) const;
    KorString left(std::int32_t n) const;
    KorString from(std::int32_t start) const;
    KorString toLower() const;
    KorString toUpper() const;
    /// White space runs become one separator and go at both ends; a plain copy without the host.
    KorString simplify(char16_t separator = u' ') const;
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

bool operator==(const KorString& a, const KorString& b);
/// Against `b` widened as the constructor does.
bool operator==(const KorString& a, const char* b);
/// The host's order, else by unit; a null text is an empty one.
bool operator<(const KorString& a, const KorString& b);
/// Writes the narrow form.
std::ostream& operator<<(std::ostream& stream, const KorString& text);
