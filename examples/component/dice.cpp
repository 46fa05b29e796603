// SPDX-License-Identifier: Apache-2.0
// A component with a class, a service and a self-test.
#include "component/itemfactory.h"
#include "component/moduleidentity.h"
#include "component/objects/queryinterface.h"
#include "component/objects/services/izelrandom.h"
#include "component/objects/sptr.h"
#include "component/selftests.h"
#include "idie.h"

#include <atomic>

namespace {

const ZelModuleIdentity identity{
    "dice", ZelGuid{0x03BB3768, 0x472E, 0x4ADE, {0x84, 0x63, 0x28, 0xC3, 0xCC, 0x12, 0x23, 0x9E}}};

std::atomic<std::int32_t> rollCount = 0;

class Die : public IDie {
public:
    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<IDie>(this, className(), name, result);
    }
    const char* className() override { return "Die"; }

    std::int32_t roll() override {
        const SPtr<IZelRandom> random;
        if (!random) return 0;
        ++rollCount;
        return random->below(6) + 1;
    }
};

class RollCounter : public IRollCounter {
public:
    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<IRollCounter>(this, className(), name, result);
    }
    const char* className() override { return "RollCounter"; }

    std::int32_t rolls() override { return rollCount; }
};

ZelTClassItemFactory<Die> dice{"Die", nullptr, dieClassId};
ZelSingletonTClassItemFactory<RollCounter> counter{"RollCounter", nullptr, rollCounterClassId};

bool diceStayInRange() {
    const IPtr<IDie> die(new Die);
    const std::int32_t rolled = die->roll();
    return rolled >= 0 && rolled <= 6;
}

[[maybe_unused]] const bool isTestAdded =
    (zelAddSelfTest({"dice stay in their range", diceStayInRange}), true);

} // namespace
