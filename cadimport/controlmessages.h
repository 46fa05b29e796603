// SPDX-License-Identifier: Apache-2.0
/// @file
/// The messages that steer the conversation and carry nothing of a model.
#pragma once

#include "cadimport/message.h"

#include <QList>

namespace CADImport {

/// A message that says everything by its wire name. It is always valid.
template <class T> class Signal : public MessageOf<T> {
public:
    bool isValid() const override { return true; }

private:
    friend class MessageOf<T>;
    template <class Wire, class Self> static void fields(Wire&, Self&) {}
    void dumpFields(QTextStream&) const {}
};

/// "OK": the client's first word on a new control connection.
class OKMessage : public Signal<OKMessage> {
public:
    static const QString wireName;
};

/// "Escape": the server breaks off; the client ends its run.
class EscapeMessage : public Signal<EscapeMessage> {
public:
    static const QString wireName;
};

/// "Finish": the server is done; the client ends its run.
class FinishMessage : public Signal<FinishMessage> {
public:
    static const QString wireName;
};

/// "SendNextModel": the client asks for a model.
class SendNextModelMessage : public Signal<SendNextModelMessage> {
public:
    static const QString wireName;
};

/// "SetParameters": command-line words, a keyword one element and its values the next ones. Valid
/// when there is a word.
class SetParameterMessage : public MessageOf<SetParameterMessage> {
public:
    static const QString wireName;
    QList<QString> parameters;

    SetParameterMessage() = default;
    explicit SetParameterMessage(const QList<QString>& words) : parameters(words) {}
    bool isValid() const override;

private:
    friend class MessageOf<SetParameterMessage>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

extern template class MessageOf<OKMessage>;
extern template class MessageOf<EscapeMessage>;
extern template class MessageOf<FinishMessage>;
extern template class MessageOf<SendNextModelMessage>;
extern template class MessageOf<SetParameterMessage>;

} // namespace CADImport
