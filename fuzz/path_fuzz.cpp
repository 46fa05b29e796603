// SPDX-License-Identifier: Apache-2.0
// Paths: two lines of UTF-8. Normal forms stay, outputs may be inputs, parts make the whole, and
// names of the system go there and back.
#include "fuzz/input.h"
#include "platform/posix/pathbytes.h"
#include "zelbasictypes/files/pathoperations.h"

#include <functional>

namespace {

KorString changed(KorString path, const std::function<void(KorString&)>& change) {
    change(path);
    return path;
}

KorString derived(const KorString& path,
                  const std::function<void(const KorString&, KorString&)>& derive) {
    KorString out("left over"), same(path);
    derive(path, out);
    derive(same, same);
    require(out == same, "an input that is the output counts");
    return out;
}

void takeApart(const KorString& path, const KorString& other) {
    const KorString normal = changed(path, normalize);
    require(changed(normal, normalize) == normal, "a normal form changes");
    const KorString directory = derived(normal, parentDirectory);
    const KorString name = derived(normal, [](auto& p, auto& out) { fileName(p, out, true); });
    if (normal.find(u'\\') > 0 && normal.find(u"\\\\") < 0) {
        require(changed(directory, [&](KorString& p) { join(p, name); }) == normal, "parts differ");
    }
    derived(path, [](auto& p, auto& out) { fileName(p, out, false); });
    derived(path, baseName);
    derived(path, withDriveRoot);
    const KorString ending = derived(path, extension);
    const KorString same = changed(path, [&](KorString& p) { changeExtension(p, ending); });
    require(ending.isEmpty() || ending.at(0) == u'.' || same == path, "another extension");
    for (auto change : {collapseDots, replaceSpaces}) {
        KorString result(path);
        require(change(result) == !(result == path), "a change isn't told");
        require(!change(result), "changes again");
    }
    changed(path, stripSpaces);
    changed(path, makeAbsolute);
    changed(path, [&](KorString& p) { insertBeforeExtension(p, other); });
    require(isAbsolute(path) != isRelative(path), "neither or both");
    require(pathEqual(path, other) != pathNotEqual(path, other), "equal and not");
    require(pathEqual(path, path.toUpper()), "case counts");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, std::min<std::size_t>(size, 2000));
    const std::string path = input.line().c_str(), other = input.line().c_str();
    takeApart(KorString(platform::unitsOf(path).c_str()), KorString::fromUtf8(other.c_str()));
    require(platform::bytesOf(platform::unitsOf(path)) == path, "bytes come back otherwise");
    if (path.find(':') == path.npos) {
        require(platform::systemPath(platform::unitsOfPath(path)) == path, "a name is another one");
    }
    return 0;
}
