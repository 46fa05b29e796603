// SPDX-License-Identifier: Apache-2.0
// The reference server writes the shape, and what the host's modelling component keeps of the
// messages is the record.
#include "tests/host/shape/recordofshape.h"

#include "cadimport/creator.h"
#include "cadimport/recordreader.h"
#include "component/manageraccess.h"
#include "host/modelling/modellingcomponent.h"
#include "server/writing/modelwriter.h"

#include <QBuffer>

namespace host {

ModelRecord recordOfShape(const TopoDS_Shape& shape, double unitMillimetres) {
    QBuffer file;
    file.open(QIODevice::ReadWrite);
    QDataStream stream(&file);
    server::Report report;
    report.unit.millimetres = unitMillimetres;
    server::Progress silent(nullptr);
    server::writeModel(server::bodiesOf(shape, {}, report), stream, silent, report);
    file.seek(0);

    zelSetManager(&rootManager());
    const ModellingComponent modelling(rootManager());
    CADImport::RecordReader records(file);
    CADImport::Creator creator(modelling.importTarget());
    while (!records.atEnd()) records.next()->accept(creator);
    rootManager().clear();
    return modelling.record().models.at(0);
}

} // namespace host
