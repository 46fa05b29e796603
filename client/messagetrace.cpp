// SPDX-License-Identifier: Apache-2.0
// The trace files of a control connection, a developer's aid. Their names end in .xml, but a file
// is a row of blocks, not a document.
#include "client/clientcontrolthread.h"

#include "client/librarytext.h"

#include <QTextStream>

namespace {

constexpr const char16_t* readTracePath = u"C:\\Temp\\CADImportClientControlReadTrace.xml";
constexpr const char16_t* sendTracePath = u"C:\\Temp\\CADImportClientControlSendTrace.xml";
constexpr int bytesPerLine = 10;

} // namespace

void ClientControlThread::writeReadTrace(const QByteArray& frame) {
    appendTrace(readTracePath, frame);
}

void ClientControlThread::writeSendTrace(const QByteArray& frame) {
    appendTrace(sendTracePath, frame);
}

void ClientControlThread::appendTrace(const char16_t* path, const QByteArray& frame) {
    QFile file;
    if (!openForAppending(path, file)) return;
    QTextStream text(&file);
    writeTrace(text, frame);
}

void ClientControlThread::writeTrace(QTextStream& text, const QByteArray& frame) {
    text << "<QByteArray length=\"" << frame.size() << "\">\n";
    for (int i = 0; i < frame.size(); ++i) {
        if (i > 0 && i % bytesPerLine == 0) text << '\n';
        const auto byte = static_cast<unsigned char>(frame.at(i));
        text << QStringLiteral("  %1").arg(uint{byte}, 2, 16, QLatin1Char(' '));
    }
    text << "\n</QByteArray>\n\n";
}
