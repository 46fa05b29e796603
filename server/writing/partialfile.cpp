// SPDX-License-Identifier: Apache-2.0
// Partial files stand in a small fixed table while they live.
#include "server/writing/partialfile.h"

#include "server/failure.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace server {
namespace {

struct Slot {
    std::atomic<bool> used{false};
    std::atomic<bool> filled{false};
    char path[4096] = {};
};
std::array<Slot, 4> table;

int takeSlot(const QByteArray& path) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        Slot& slot = table[i];
        if (static_cast<std::size_t>(path.size()) >= sizeof slot.path || slot.used.exchange(true)) {
            continue;
        }
        std::memcpy(slot.path, path.constData(), static_cast<std::size_t>(path.size()) + 1);
        slot.filled = true;
        return static_cast<int>(i);
    }
    return -1;
}

void freeSlot(int index) {
    if (index < 0) return;
    Slot& slot = table[static_cast<std::size_t>(index)];
    slot.filled = false;
    slot.used = false;
}

std::filesystem::path systemPath(const QString& name) {
    return std::filesystem::path(name.toStdU16String());
}

[[noreturn]] void fail(const QString& name, const std::string& reason) {
    throw Failure(ExitCode::unwritable, name.toStdString() + " can't be written: " + reason);
}

} // namespace

PartialFile::PartialFile(const QString& name)
    : name_(name), file_(name + QStringLiteral(".partial")),
      slot_(takeSlot(QFile::encodeName(file_.fileName()))) {}

PartialFile::~PartialFile() {
    file_.close();
    file_.remove();
    freeSlot(slot_);
}

QFile& PartialFile::open() {
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        fail(name_, file_.errorString().toStdString());
    }
    return file_;
}

void PartialFile::commit() {
    if (file_.isOpen() && (!file_.flush() || file_.error() != QFileDevice::NoError)) {
        fail(name_, file_.errorString().toStdString());
    }
    file_.close();
    std::error_code error;
    std::filesystem::rename(systemPath(partialName()), systemPath(name_), error);
    if (error) fail(name_, error.message());
}

void PartialFile::removeAll() noexcept {
    for (const Slot& slot : table) {
        if (slot.filled) std::remove(slot.path);
    }
}

} // namespace server
