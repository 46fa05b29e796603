// SPDX-License-Identifier: Apache-2.0
// The list of words, and the instantiations for the control messages.
#include "cadimport/controlmessages.h"

#include "cadimport/messagebody.h"

namespace CADImport {

bool SetParameterMessage::isValid() const { return !parameters.isEmpty(); }

template <class Wire, class Self> void SetParameterMessage::fields(Wire& wire, Self& self) {
    wire.list(self.parameters);
}

void SetParameterMessage::dumpFields(QTextStream& text) const {
    for (const QString& word : parameters) text << "\t\"" << word << "\"" << Qt::endl;
}

template class MessageOf<OKMessage>;
template class MessageOf<EscapeMessage>;
template class MessageOf<FinishMessage>;
template class MessageOf<SendNextModelMessage>;
template class MessageOf<SetParameterMessage>;

} // namespace CADImport
