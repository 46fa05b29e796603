// SPDX-License-Identifier: Apache-2.0
// What all curve and surface objects have in common: the record behind them, their name in the
// trace, their scaling and their answers to queries.
#pragma once

#include "cadimport/modelling/curves.h"
#include "cadimport/modelling/izelfeature.h"
#include "cadimport/modelling/surfaces.h"
#include "component/objects/queryinterface.h"
#include "host/modelling/importsession.h"
#include "host/modelling/scaling.h"
#include "zelbasictypes/math/zelmatrix4.h"

namespace host {

/// How the importer finds the record behind a curve of this host. The name is the object's own in
/// the trace. The record may still change until the model is finished.
class RecordedCurve : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "RecordedCurve";

    virtual const std::string& traceName() const = 0;
    virtual std::shared_ptr<const CurveRecord> record() const = 0;
};

/// The same for surfaces.
class RecordedSurface : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "RecordedSurface";

    virtual const std::string& traceName() const = 0;
    virtual std::shared_ptr<const SurfaceRecord> record() const = 0;
};

struct CurveFamily {
    using Interface = IZelCurve;
    using Recorded = RecordedCurve;
    using AnyRecord = CurveRecord;
};
struct SurfaceFamily {
    using Interface = IZelSurface;
    using Recorded = RecordedSurface;
    using AnyRecord = SurfaceRecord;
};

/// A shape object whose `Record` stands behind the host's interface `Shape`. `transform` takes the
/// matrix for a uniform scale and reads its factor from the first place.
template <class Shape, class Family, class Record>
class ShapeObject : public Shape,
                    public IZelFeature,
                    public Family::Interface,
                    public Family::Recorded {
public:
    explicit ShapeObject(std::shared_ptr<ImportSession> session)
        : session_(std::move(session)), name_(session_->nameFor(Shape::interfaceName)) {}

    void qi(const char* name, void** result, std::int32_t = 0) override {
        zelAnswerQuery<Shape, typename Family::Interface, IZelFeature, typename Family::Recorded>(
            this, this->className(), name, result);
    }

    void transform(const ZelMatrix4* matrix) override {
        trace("transform", matrix);
        if (matrix) scale(shape(), matrix->m[0]);
    }

    const std::string& traceName() const override { return name_; }
    std::shared_ptr<const typename Family::AnyRecord> record() const override { return record_; }

protected:
    template <class... Arguments>
    void trace(std::string_view operation, const Arguments&... arguments) {
        session_->trace.call(name_, operation, arguments...);
    }
    Record& shape() { return std::get<Record>(*record_); }

private:
    std::shared_ptr<ImportSession> session_;
    std::string name_;
    std::shared_ptr<typename Family::AnyRecord> record_ =
        std::make_shared<typename Family::AnyRecord>(Record{});
};

} // namespace host
