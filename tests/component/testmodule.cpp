// SPDX-License-Identifier: Apache-2.0
// A loadable module with one counted class, as small as a component can be.
#include "component/itemfactory.h"
#include "component/objects/services/izelrandom.h"
#include "component/objects/sptr.h"
#include "tests/component/iticket.h"
#include "tests/support/service.h"

namespace {

class Ticket : public testsupport::Service<ITicket> {
public:
    ~Ticket() override {
        if (gone) *gone = true;
    }
    const char* className() override { return "Ticket"; }
    void flagWhenGone(bool* flag) override { gone = flag; }
    std::int32_t draw() override {
        SPtr<IZelRandom> random;
        return random ? random->below(7) : -1;
    }

private:
    bool* gone = nullptr;
};

ZelTClassItemFactory<Ticket> itemFactory{"Ticket", nullptr, ticketClassId};

} // namespace
