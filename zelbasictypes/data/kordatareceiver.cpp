// SPDX-License-Identifier: Apache-2.0
// The interfaces of the settings listener.
#include "zelbasictypes/data/kordatareceiver.h"

#include "component/objects/queryinterface.h"

void KorDataReceiver::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IZelDataReceiver>(this, "KorDataReceiver", name, result);
}

const char* KorDataReceiver::className() { return "KorDataReceiver"; }
