// SPDX-License-Identifier: Apache-2.0
// Listening to Qt's log.
#include "host/run/componentlog.h"

#include <QString>

#include <cstring>
#include <mutex>

namespace host {
namespace {

QtMessageHandler usualHandler = nullptr;
std::mutex linesMutex;
std::vector<std::string> keptLines;

bool isComponents(const QMessageLogContext& context) {
    return context.category && std::strncmp(context.category, "brix.", 5) == 0;
}

void take(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type != QtWarningMsg || !isComponents(context)) return usualHandler(type, context, text);
    const std::lock_guard guard(linesMutex);
    keptLines.push_back(text.toStdString());
}

} // namespace

ComponentLog::ComponentLog() {
    keptLines.clear();
    usualHandler = qInstallMessageHandler(take);
}

ComponentLog::~ComponentLog() { qInstallMessageHandler(usualHandler); }

std::vector<std::string> ComponentLog::lines() const {
    const std::lock_guard guard(linesMutex);
    return keptLines;
}

} // namespace host
