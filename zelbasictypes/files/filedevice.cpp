// SPDX-License-Identifier: Apache-2.0
// Open modes as flags, and lengths that the platform takes.
#include "zelbasictypes/files/filedevice.h"

#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/files/zelopenmode.h"

#include <algorithm>

namespace {

constexpr std::int64_t greatestTransfer = 0x7FFFFFFF;

std::uint64_t transferLength(std::int64_t count) {
    return static_cast<std::uint64_t>(std::clamp<std::int64_t>(count, 0, greatestTransfer));
}

std::int32_t accessFlags(std::int32_t mode) {
    using namespace platform::open_flag;
    switch (mode & (zelmode::in | zelmode::out)) {
    case zelmode::in | zelmode::out:
        return readWrite | create;
    case zelmode::in:
        return readOnly;
    case zelmode::out:
        return writeOnly | create;
    default:
        zelAssertFail("0", __FILE__, __LINE__);
        return -1;
    }
}

} // namespace

namespace zeldevice {

std::int32_t flagsOf(std::int32_t mode) {
    namespace flag = platform::open_flag;
    std::int32_t flags = accessFlags(mode);
    if (flags == -1) return -1;
    flags |= mode & zelmode::binary ? flag::binary : flag::text;
    const bool keeps = mode & (zelmode::in | zelmode::ate | zelmode::app);
    if ((mode & zelmode::trunc) || !keeps) flags |= flag::truncate;
    if (mode & zelmode::app) flags |= flag::append;
    return flags;
}

std::int32_t open(const KorString& path, std::int32_t flags, std::int32_t permission) {
    if (flags == -1) return -1;
    return platform::open(path.c_str(), flags, platform::share::denyNone, permission);
}

std::int32_t open(const char* path, std::int32_t flags, std::int32_t permission) {
    if (flags == -1 || !path) return -1;
    return platform::open(path, flags, platform::share::denyNone, permission);
}

std::int64_t read(std::int32_t fd, void* buffer, std::int64_t count) {
    return platform::read(fd, buffer, transferLength(count));
}

std::int64_t write(std::int32_t fd, const void* buffer, std::int64_t count) {
    return platform::write(fd, buffer, transferLength(count));
}

KorString widened(const char* path) {
    return path ? KorString(platform::widePath(path).c_str()) : KorString();
}

std::int64_t seek(std::int32_t fd, std::int64_t offset, std::int32_t origin) {
    return platform::seek(fd, offset, origin);
}

} // namespace zeldevice
