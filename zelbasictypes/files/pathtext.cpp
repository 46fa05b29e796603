// SPDX-License-Identifier: Apache-2.0
// Paths as texts: normal form, parts, dots.
#include "zelbasictypes/files/pathoperations.h"

#include "zelbasictypes/text/textscan.h"

#include <string>
#include <string_view>

namespace {

using View = std::u16string_view;
constexpr auto npos = View::npos;
constexpr char16_t backslash = u'\\';
constexpr View separators = u"/\\";

void store(KorString& out, View text) {
    out = KorString(text.data(), static_cast<std::int32_t>(text.size()));
}

/// Where the last component begins, after a separator of the given kinds.
std::size_t lastComponent(View path, View kinds) {
    const std::size_t at = path.find_last_of(kinds);
    return at == npos ? 0 : at + 1;
}

/// Where the dot of the extension stands, or npos.
std::size_t extensionDot(View path) {
    const std::size_t dot = path.rfind(u'.');
    return dot != npos && dot >= lastComponent(path, u"\\") ? dot : npos;
}

bool isSlashDrive(View text) {
    return text.size() >= 4 && text[0] == u'/' && text[1] == u'/' && text[3] == u'/';
}

bool isNormal(View text) {
    return text.find(u'/') == npos && (text.size() < 2 || text.back() != backslash);
}

bool isLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

/// The last backslash in `front`, or failing that the last slash.
std::size_t lastSeparator(View front) {
    const std::size_t at = front.rfind(backslash);
    return at != npos ? at : front.rfind(u'/');
}

/// Takes out the steps up that are written like `step`, from the front. At one that has nothing to
/// go up from all ends, and the answer is false.
bool collapse(std::u16string& text, View step) {
    std::u16string front;
    for (std::size_t i = 0; i < text.size(); ++i) {
        front += text[i];
        while (View(front).ends_with(step)) {
            const std::size_t from =
                lastSeparator(View(front).substr(0, front.size() - step.size()));
            if (from == npos) {
                text.replace(0, i + 1, front);
                return false;
            }
            front.resize(from);
            front += step.back();
        }
    }
    text = front;
    return true;
}

} // namespace

const KorString& pathBackslash() {
    static const KorString piece = KorString::borrow(u"\\", "\\");
    return piece;
}

const KorString& pathSlash() {
    static const KorString piece = KorString::borrow(u"/", "/");
    return piece;
}

const KorString& pathFullStop() {
    static const KorString piece = KorString::borrow(u".", ".");
    return piece;
}

void normalize(KorString& path) {
    if (isNormal(path.view())) return;
    std::u16string text(path.view());
    if (isSlashDrive(text)) text.replace(0, 4, {text[2], u':', backslash});
    for (char16_t& c : text) {
        if (c == u'/') c = backslash;
    }
    while (text.size() > 1 && text.back() == backslash) text.pop_back();
    store(path, text);
}

void join(KorString& path, const KorString& name) {
    std::u16string text(path.view());
    if (!text.empty() && text.back() != backslash) text += backslash;
    text += name.view();
    store(path, text);
    normalize(path);
}

void fileName(const KorString& path, KorString& out, bool keepExtension) {
    View name = path.view();
    name.remove_prefix(lastComponent(name, u"\\"));
    if (!keepExtension) name = name.substr(0, name.rfind(u'.'));
    store(out, name);
}

bool baseName(const KorString& path, KorString& out) {
    View name = path.view();
    name.remove_prefix(lastComponent(name, separators));
    const std::size_t dot = name.rfind(u'.');
    if (dot != npos && dot > 0) name = name.substr(0, dot);
    store(out, name);
    return true;
}

void parentDirectory(const KorString& path, KorString& out) {
    const View text = path.view();
    const std::size_t at = text.find_last_of(separators);
    if (at == npos) {
        out = pathFullStop();
    } else if (at == 0) {
        out = pathBackslash();
    } else {
        store(out, text.substr(0, at));
    }
}

void extension(const KorString& path, KorString& out) {
    const View text = path.view();
    const std::size_t dot = extensionDot(text);
    if (dot == npos) {
        out = KorString::sharedEmpty();
    } else {
        store(out, text.substr(dot + 1));
    }
}

void insertBeforeExtension(KorString& path, const KorString& text) {
    std::u16string result(path.view());
    const std::size_t dot = extensionDot(result);
    result.insert(dot == npos ? result.size() : dot, text.view());
    store(path, result);
}

void changeExtension(KorString& path, const KorString& newExtension) {
    std::u16string result(path.view().substr(0, extensionDot(path.view())));
    if (!newExtension.isEmpty()) {
        if (newExtension.at(0) != u'.') result += u'.';
        result += newExtension.view();
    }
    store(path, result);
}

void withDriveRoot(const KorString& path, KorString& out) {
    const bool drive = path.length() == 2 && path.at(1) == u':';
    if (&out != &path) out = path;
    if (drive) out.append(backslash);
}

bool isAbsolute(const KorString& path) {
    const View text = path.view();
    if (text.empty()) return false;
    return text[0] == backslash || (text.size() > 1 && isLetter(text[0]) && text[1] == u':');
}

bool isRelative(const KorString& path) { return !isAbsolute(path); }

bool collapseDots(KorString& path) {
    std::u16string text(path.view());
    // A step taken out at slashes makes no new one at backslashes.
    if (collapse(text, u"\\..\\")) collapse(text, u"/../");
    const bool changed = text.size() != path.view().size();
    if (changed) store(path, text);
    return changed;
}

bool replaceSpaces(KorString& path) {
    const View text = path.view();
    bool changed = false;
    const auto length = static_cast<std::int32_t>(text.size());
    for (auto i = static_cast<std::int32_t>(lastComponent(text, separators)); i < length; ++i) {
        if (!zeltext::isPlainSpace(path.at(i))) continue;
        path.setAt(i, u'_');
        changed = true;
    }
    return changed;
}

void stripSpaces(KorString& path) { path = path.stripSpace(); }

bool pathEqual(const KorString& a, const KorString& b) { return a.toLower() == b.toLower(); }

bool pathNotEqual(const KorString& a, const KorString& b) { return !pathEqual(a, b); }

ZelPath rootPath() { return ZelPath(pathBackslash()); }
