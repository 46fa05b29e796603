// SPDX-License-Identifier: Apache-2.0
// The option scan, and the two messages that end a conversation.
#include "client/controlmessageinterpreter.h"

#include "client/tessoracadimporterclient.h"

namespace CADImport {
namespace {

/// Negative numbers keep their 16-bit pattern; what is no signed 16-bit number is 0.
std::uint16_t portOf(const QString& text) { return static_cast<std::uint16_t>(text.toShort()); }

KorString hostOf(const QString& text) { return KorString(text.toLatin1().constData()); }

} // namespace

void ClientControlMessageInterpreter::endRun() {
    ITessoraCADImporterClient* target = client;
    target->setEscaped();
    target->setFinished();
}

void ClientControlMessageInterpreter::visit(const EscapeMessage& message) {
    if (message.isValid()) endRun();
}

void ClientControlMessageInterpreter::visit(const FinishMessage& message) {
    if (message.isValid()) endRun();
}

void ClientControlMessageInterpreter::visit(const SetParameterMessage& message) {
    if (!message.isValid()) return;
    ITessoraCADImporterClient* target = client;
    const QList<QString>& words = message.parameters;
    const int count = static_cast<int>(words.size());
    for (int i = 0; i + 1 < count; ++i) {
        const bool hasTwo = i + 2 < count;
        if (hasTwo && words[i] == QLatin1String("-ControlSocket")) {
            return target->setControlSocket(hostOf(words[i + 1]), portOf(words[i + 2]));
        }
        if (hasTwo && words[i] == QLatin1String("-DataSocket")) {
            return target->setDataSocket(hostOf(words[i + 1]), portOf(words[i + 2]));
        }
        if (words[i] == QLatin1String("-ResultFile")) client->addResultFile(words[++i]);
    }
}

} // namespace CADImport
