// SPDX-License-Identifier: Apache-2.0
// Uses a little of both installed libraries; the exit status tells whether it works.
#include "cadimport/messageregistry.h"
#include "zelbasictypes/text/korstring.h"

int main() {
    const bool allMessages = CADImport::messageRegistry().size() == 26;
    const bool strings = KorString("part.step").find(KorString(".step")) == 4;
    return allMessages && strings ? 0 : 1;
}
