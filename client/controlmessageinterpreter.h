// SPDX-License-Identifier: Apache-2.0
// The visitor that gives control messages their meaning on the client's side.
#pragma once

#include "cadimport/controlmessages.h"

class TessoraCADImporterClient;

namespace CADImport {

/// Built around one message for one client, which outlives it. Everything it does lands in the
/// client, through its interface; messages that are not valid, and all others, do nothing.
///
/// The option scan of a SetParameterMessage compares whole words, case and all:
///   "-ControlSocket" host port, "-DataSocket" host port: the first complete one sets host and
///       port and ends the scan. A port is a signed 16-bit decimal number; anything else is 0.
///   "-ResultFile" file: adds the file; the scan goes on behind it.
class ClientControlMessageInterpreter : public BaseVisitor,
                                        public Visitor<EscapeMessage, void, true>,
                                        public Visitor<FinishMessage, void, true>,
                                        public Visitor<OKMessage, void, true>,
                                        public Visitor<SetParameterMessage, void, true>,
                                        public Visitor<Message, void, true> {
public:
    explicit ClientControlMessageInterpreter(TessoraCADImporterClient* owner) : client(owner) {}
    ~ClientControlMessageInterpreter() override { client = nullptr; }
    ClientControlMessageInterpreter(const ClientControlMessageInterpreter&) = delete;
    ClientControlMessageInterpreter& operator=(const ClientControlMessageInterpreter&) = delete;

    void visit(const EscapeMessage& message) override;
    void visit(const FinishMessage& message) override;
    void visit(const OKMessage&) override {}
    void visit(const SetParameterMessage& message) override;
    void visit(const Message&) override {}

private:
    void endRun();

    TessoraCADImporterClient* client;
};

} // namespace CADImport
