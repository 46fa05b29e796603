// SPDX-License-Identifier: Apache-2.0
// The coordinate system object. It keeps what it is given as it comes: the origin in model units,
// the axes with the length that the model's scale gives them.
#pragma once

#include "cadimport/modelling/izelcoordinatesystem.h"
#include "cadimport/modelling/izelfeature.h"
#include "host/modelling/importsession.h"

namespace host {

class CoordinateSystemObject : public IZelCoordinateSystem, public IZelFeature {
public:
    /// Answered by `qi`, so that the host finds its own object behind an IZelFeature.
    static constexpr const char* interfaceName = "CoordinateSystemObject";

    explicit CoordinateSystemObject(std::shared_ptr<ImportSession> session);

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return interfaceName; }

    void setOrigin(const ZelVector3& origin) override;
    void setAxes(const ZelVector3& xDirection, const ZelVector3& yDirection) override;
    /// Scales origin and axes alike.
    void transform(const ZelMatrix4* matrix) override;

    const CoordinateSystemRecord& record() const { return record_; }

private:
    std::shared_ptr<ImportSession> session_;
    std::string name_;
    CoordinateSystemRecord record_;
};

} // namespace host
