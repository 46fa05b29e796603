// SPDX-License-Identifier: Apache-2.0
// A listener that overrides one kind of value.
#include "zelbasictypes/data/kordatareceiver.h"

#include <gtest/gtest.h>

namespace {

class DoubleListener : public KorDataReceiver {
public:
    void receiveDouble(const char*, double value) override { heard = value; }
    double heard = 0.0;
};

TEST(KorDataReceiver, SubclassHearsWhatItOverridesAndNothingElse) {
    DoubleListener listener;
    auto* receiver = zelQuery<IZelDataReceiver>(&listener);
    ASSERT_NE(receiver, nullptr);
    receiver->receiveBool("key", 1);
    receiver->receiveInt("key", 2);
    receiver->receiveUnsigned("key", 3);
    receiver->receiveFloat("key", 4.0f);
    receiver->receiveString("key", nullptr);
    receiver->receiveData(nullptr, nullptr, -1);
    EXPECT_EQ(listener.heard, 0.0);
    receiver->receiveDouble("key", 5.0);
    EXPECT_EQ(listener.heard, 5.0);
}

TEST(KorDataReceiver, SubclassAnswersToTheNameOfItsBase) {
    DoubleListener listener;
    void* found = nullptr;
    listener.qi("KorDataReceiver", &found);
    EXPECT_EQ(found, static_cast<KorDataReceiver*>(&listener));
    listener.qi("DoubleListener", &found);
    EXPECT_EQ(found, nullptr);
}

} // namespace
