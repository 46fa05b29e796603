// SPDX-License-Identifier: Apache-2.0
// A table from descriptors to names.
#include "platform/posix/temporaryfiles.h"

#include <map>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

struct Names {
    std::mutex lock;
    std::map<int, std::string> paths;
};

/// Never destroyed: files may be closed by exit handlers.
Names& names() {
    static auto* const all = new Names;
    return *all;
}

/// Relative names must survive a change of the current directory.
std::string absolute(const std::string& path) {
    if (path.empty() || path[0] == '/') return path;
    char* directory = ::getcwd(nullptr, 0);
    std::string result = directory ? std::string(directory) + '/' + path : path;
    std::free(directory);
    return result;
}

std::string takeName(int file) {
    const std::lock_guard hold(names().lock);
    const auto node = names().paths.extract(file);
    return node ? node.mapped() : std::string();
}

/// A descriptor that was closed behind our back may have been given out again.
bool isName(const std::string& path, int file) {
    struct ::stat named {};
    struct ::stat open {};
    return ::lstat(path.c_str(), &named) == 0 && ::fstat(file, &open) == 0 &&
           named.st_dev == open.st_dev && named.st_ino == open.st_ino;
}

} // namespace

void rememberTemporary(int file, const std::string& path) {
    const std::lock_guard hold(names().lock);
    names().paths[file] = absolute(path);
}

void unlinkTemporary(int file) {
    const std::string path = takeName(file);
    if (!path.empty() && isName(path, file)) ::unlink(path.c_str());
}

} // namespace platform
