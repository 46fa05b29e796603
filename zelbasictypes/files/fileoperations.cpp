// SPDX-License-Identifier: Apache-2.0
// Opening, copying and naming files.
#include "zelbasictypes/files/fileoperations.h"

#include "component/objects/services/idatastore.h"
#include "component/objects/sptr.h"
#include "platform/clock.h"
#include "platform/file.h"
#include "zelbasictypes/files/pathoperations.h"
#include "zelbasictypes/files/zelfstream.h"

#include <memory>
#include <string>

namespace {

constexpr std::streamsize copyBlock = 2048;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, FileCloser>;

/// Whether nobody holds the file open.
bool isFree(const KorString& path) {
    const platform::Descriptor file =
        platform::open(path.c_str(), platform::open_flag::readOnly, platform::share::denyReadWrite);
    if (file == -1) return false;
    platform::close(file);
    return true;
}

bool isSamePath(KorString a, KorString b) {
    makeAbsolute(a);
    makeAbsolute(b);
    return pathEqual(a, b);
}

/// Whether both names lead to one file, through links too: opening the one makes the other busy.
/// Where others hold the file already, the names must do.
bool isSameFile(const KorString& a, const KorString& b) {
    if (!isFile(b)) return false;
    if (!isFree(b)) return isSamePath(a, b);
    const ZelIfstream opened(a, zelmode::readBinary);
    return opened.isOpen() && !isFree(b);
}

void copyContents(std::istream& from, std::ostream& to) {
    char block[copyBlock];
    std::streamsize got = 0;
    do {
        got = from.rdbuf()->sgetn(block, copyBlock);
        to.write(block, got);
    } while (got == copyBlock);
}

} // namespace

std::FILE* zelOpenFile(const KorString& path, const char* mode) {
    if (path.isEmpty()) return nullptr;
    return platform::openStream(path.c_str(), KorString(mode).c_str());
}

bool copyFile(const KorString& from, const KorString& to) {
    if (isSameFile(from, to)) return true;
    ZelIfstream source(from, zelmode::readBinary);
    if (!source) return false;
    ZelOfstream target(to, zelmode::writeBinary);
    if (!target) return false;
    copyContents(source, target);
    return true;
}

bool copyFile(const char* from, const char* to) {
    if (!from || !to || !*from || !*to) return false;
    if (isSameFile(KorString::fromUtf8(from), KorString::fromUtf8(to))) return true;
    const OpenFile source(platform::openStream(from, "rb"));
    if (!source) return false;
    const OpenFile target(platform::openStream(to, "wb"));
    if (!target) return false;
    char block[copyBlock];
    std::size_t got = 0;
    do {
        got = std::fread(block, 1, sizeof block, source.get());
    } while (got > 0 && std::fwrite(block, 1, got, target.get()) > 0);
    return true;
}

bool makeTempName(KorString& out) {
    out = KorString();
    if (const SPtr<IDataStore> settings; settings) {
        const KorString* configured = settings->getString("Directories/Temp Directory", nullptr);
        if (configured) out = *configured;
    }
    if (out.isEmpty()) withDriveRoot(zelDirectory("temp"), out);
    char name[32];
    std::snprintf(name, sizeof name, "\\zel-%08x-%08x-temp", unsigned{platform::processId()},
                  static_cast<unsigned>(platform::performanceCounter()));
    out.append(name);
    return true;
}
