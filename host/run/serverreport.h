// SPDX-License-Identifier: Apache-2.0
// The report that a server leaves beside its output.
#pragma once

#include "host/modelling/record.h"

#include <QDateTime>
#include <QString>

#include <nlohmann/json.hpp>

namespace host {

/// Made before the run, so that a report of an earlier run isn't taken for this one's.
class ServerReportFile {
public:
    explicit ServerReportFile(const QString& outputBase);
    /// Null when there is no new report, or none that is JSON.
    nlohmann::ordered_json read() const;

private:
    QString path_;
    QDateTime before_; ///< when the report that was there already was written
};

/// Why the server failed, by its own word; empty when it says nothing of it.
std::string failureIn(const nlohmann::ordered_json& report);

/// What the server says it wrote and the record hasn't, kind by kind. Nothing when the report has
/// no numbers.
std::vector<DroppedRecord> lostOnTheWay(const nlohmann::ordered_json& report,
                                        const ImportRecord& record);

} // namespace host
