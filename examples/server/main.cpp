// SPDX-License-Identifier: Apache-2.0
// A CAD Importer server that knows one part: whatever the input, it sends a cube of 20 mm.
#include "cadimport/controlframe.h"
#include "cadimport/controlmessages.h"
#include "cube.h"

#include <QCoreApplication>
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>

using namespace CADImport;

namespace {

enum ExitCode { written = 0, wrongUse = 2, noOutput = 7, stopped = 9 };

/// The file gets its name once it is whole.
ExitCode writeModel(const QString& base) {
    QFile::remove(base + ".direct");
    QFile file(base + ".direct.partial");
    if (!file.open(QIODevice::WriteOnly)) return noOutput;
    writeCube(file);
    return file.flush() && file.rename(base + ".direct") ? written : noOutput;
}

/// The next message of the client; null when it has gone, or says what nobody knows.
std::unique_ptr<Message> receive(QTcpSocket& client) {
    QDataStream stream(&client);
    QByteArray frame;
    do {
        stream.startTransaction();
        stream >> frame;
    } while (!stream.commitTransaction() && client.waitForReadyRead(-1));
    return messageInFrame(frame);
}

bool isA(const QString& wireName, const std::unique_ptr<Message>& message) {
    return message && message->name() == wireName;
}

ExitCode converse(QTcpSocket& client, const QString& base) {
    client.write(controlFrame(OKMessage()));
    for (auto message = receive(client); !isA(SendNextModelMessage::wireName, message);
         message = receive(client)) {
        if (!message || isA(FinishMessage::wireName, message)) return stopped;
    }
    const ExitCode result = writeModel(base);
    if (result != written) {
        client.write(controlFrame(EscapeMessage()));
    } else {
        client.write(controlFrame(SetParameterMessage({"-ResultFile", base + ".direct"})));
        client.write(controlFrame(FinishMessage()));
    }
    receive(client); // the client's Finish, or its end
    return result;
}

/// The word so many places behind an option; empty when there is none.
QString wordBehind(const char* option, int places) {
    const QStringList words = QCoreApplication::arguments();
    const auto at = words.lastIndexOf(option);
    return at < 0 ? QString() : words.value(at + places);
}

} // namespace

int main(int count, char** words) {
    const QCoreApplication application(count, words);
    const QString base = wordBehind("-OutputBaseName", 1);
    const auto port = wordBehind("-ControlSocket", 2).toUShort();
    if (base.isEmpty()) return wrongUse;
    QTcpServer listener;
    const bool isLive = port > 0 && listener.listen(QHostAddress::LocalHost, port) &&
                        listener.waitForNewConnection(5000);
    return isLive ? converse(*listener.nextPendingConnection(), base) : writeModel(base);
}
