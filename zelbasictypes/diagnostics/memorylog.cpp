// SPDX-License-Identifier: Apache-2.0
// The lines of the memory log.
#include "zelbasictypes/diagnostics/memorylog.h"

#include "component/objects/services/idatastore.h"
#include "component/objects/sptr.h"
#include "zelbasictypes/diagnostics/memoryqueries.h"
#include "zelbasictypes/files/pathoperations.h"
#include "zelbasictypes/files/zelfstream.h"
#include "zelbasictypes/files/zelopenmode.h"
#include "zelbasictypes/memory/memorymanager.h"

#include <exception>
#include <iomanip>
#include <locale>

namespace {

constexpr std::uint32_t kilobyte = 1024;
constexpr std::int64_t managerUnitKilobytes = 24;
constexpr int labelWidth = 18;
constexpr int numberWidth = 7;

class Log {
public:
    explicit Log(std::ostream& out) : out_(out) {}

    void attempted(std::int64_t bytes) {
        line("attempted:", bytes, 'b');
        out_ << '\n';
    }

    void system() {
        std::uint64_t free = 0;
        std::uint64_t total = 0;
        std::uint64_t swapFree = 0;
        std::uint64_t swapTotal = 0;
        zelMemoryStatus(&free, &total, &swapFree, &swapTotal, kilobyte);
        line("system free:", free, 'k');
        line("system total:", total, 'k');
        line("swap free:", swapFree, 'k');
        line("swap total:", swapTotal, 'k');
        out_ << '\n';
    }

    void manager(IZelMManager* manager) {
        if (manager) {
            line("zelmm core now:", manager->coreNow() * managerUnitKilobytes, 'k');
            line("zelmm core limit:", manager->coreLimit() * managerUnitKilobytes, 'k');
            line("zelmm swap now:", manager->swapNow() * managerUnitKilobytes, 'k');
            line("zelmm swap limit:", manager->swapLimit() * managerUnitKilobytes, 'k');
        } else {
            out_ << "zelmm not available\n";
        }
        out_ << '\n';
    }

private:
    template <class Number> void line(const char* label, Number value, char unit) {
        out_ << std::left << std::setw(labelWidth) << label << std::right << std::setw(numberWidth)
             << value << unit << '\n';
    }

    std::ostream& out_;
};

void write(std::int64_t attempted) {
    const SPtr<IDataStore> store;
    if (!store) return;
    const KorString* directory = store->getString("Directories/Logs Directory", nullptr);
    KorString path = directory ? *directory : KorString();
    join(path, KorString::borrow(u"memory.log"));
    ZelOfstream file(path, zelmode::out | zelmode::trunc);
    if (!file.isOpen()) return;
    file.imbue(std::locale::classic());
    Log log(file);
    if (attempted != 0) log.attempted(attempted);
    log.system();
    log.manager(zelMemoryManager());
    file.close();
}

} // namespace

/// Streams may throw where there is no memory at all.
void zelWriteMemoryLog(std::int64_t attempted) {
    try {
        write(attempted);
    } catch (const std::exception&) {
        return;
    }
}
