// SPDX-License-Identifier: Apache-2.0
/// @file
/// The messages that control the conversation and carry no part of a model. Ownership and threads
/// are those of Message.
#pragma once

#include "cadimport/message.h"

#include <QList>

namespace CADImport {

/// A message that says everything by its wire name.
template <class T> class Signal : public MessageOf<T> {
public:
    /// Always true.
    bool isValid() const override { return true; }

private:
    friend class MessageOf<T>;
    template <class Wire, class Self> static void fields(Wire&, Self&) {}
    void dumpFields(QTextStream&) const {}
};

/// "OK": the first word of the client on a new control connection.
class OKMessage : public Signal<OKMessage> {
public:
    static const QString wireName;
};

/// "Escape": the server gives up; the client ends its run.
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

/// "SetParameters": words of a command line, each keyword and each of its values as one element.
/// Valid when there is a word.
class SetParameterMessage : public MessageOf<SetParameterMessage> {
public:
    static const QString wireName;
    QList<QString> parameters; ///< the words

    SetParameterMessage() = default;
    /// A message with these words.
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
