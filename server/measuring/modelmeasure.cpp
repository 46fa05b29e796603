// SPDX-License-Identifier: Apache-2.0
// One list of faces, worked through from the front.
#include "server/measuring/modelmeasure.h"

#include "host/measure/validity.h"
#include "platform/clock.h"
#include "platform/processcopy.h"
#include "server/geometry/soundness.h"
#include "server/measuring/facemeasure.h"

#include <BRepBndLib.hxx>
#include <Bnd_Box.hxx>
#include <Standard_Failure.hxx>

#include <cmath>
#include <cstring>
#include <string>

namespace server {
namespace {

/// A face that takes longer would take for ever.
constexpr double secondsForAFace = 10;

/// What a copy sends for each face.
struct Figure {
    bool isKnown = false, isValid = true;
    FaceMeasure measure;
};

/// A face that isn't checked counts as valid, and so does one that breaks the check.
bool isValid(const TopoDS_Face& face) {
    try {
        return !host::reasonNotToCheck(face).empty() || host::faultOf(face).empty();
    } catch (const Standard_Failure&) {
        return true;
    }
}

struct Place {
    gp_Pnt centre;
    double reach = 0.0; ///< half of the diagonal
};

Place placeOf(const WrittenBody& body) {
    Bnd_Box box;
    for (const WrittenFace& face : body.faces) {
        try {
            BRepBndLib::Add(face.face, box, Standard_False);
        } catch (const Standard_Failure&) {
            // Any point will do as the centre.
        }
    }
    if (!isWithinReach(box)) return {};
    const gp_XYZ low = box.CornerMin().XYZ(), high = box.CornerMax().XYZ();
    return {gp_Pnt((low + high) * 0.5), 0.5 * (high - low).Modulus()};
}

class Measuring {
public:
    Measuring(const std::vector<WrittenBody>& bodies, double end, Progress& progress,
              Report& report)
        : bodies_(bodies), end_(end), progress_(progress), report_(report) {
        for (const WrittenBody& body : bodies) {
            const Place place = placeOf(body);
            for (const WrittenFace& face : body.faces) tasks_.push_back({&face, place});
        }
    }

    void perform();

private:
    struct Task {
        const WrittenFace* face;
        Place place;
    };

    Figure figureOf(const Task& task) const;
    void take(const char* bytes, std::size_t length);
    void measureFrom(std::size_t first, double seconds, const platform::TakeBytes& send) const;
    bool measureInCopy();
    void addFace(std::size_t index);
    void addBody(const WrittenBody& body, std::size_t first);

    const std::vector<WrittenBody>& bodies_;
    double end_; ///< when the process has used so many seconds of its processor
    Progress& progress_;
    Report& report_;
    std::vector<Task> tasks_;
    std::vector<Figure> figures_; ///< of the first tasks
    std::string rest_;            ///< bytes of a figure that isn't there yet
};

Figure Measuring::figureOf(const Task& task) const {
    const TopoDS_Face& face = task.face->face;
    const auto found = measured(face, task.place.centre, task.place.reach);
    return found ? Figure{true, isValid(face), *found} : Figure{};
}

void Measuring::take(const char* bytes, std::size_t length) {
    rest_.append(bytes, length);
    std::size_t used = 0;
    for (; rest_.size() - used >= sizeof(Figure); used += sizeof(Figure)) {
        std::memcpy(&figures_.emplace_back(), rest_.data() + used, sizeof(Figure));
    }
    rest_.erase(0, used);
    progress_.reach(static_cast<double>(figures_.size()) / static_cast<double>(tasks_.size()));
}

/// Leaves out what is left when the process that runs it has used `seconds` of its processor.
void Measuring::measureFrom(std::size_t first, double seconds,
                            const platform::TakeBytes& send) const {
    for (std::size_t i = first; i < tasks_.size() && platform::processorSeconds() < seconds; ++i) {
        const Figure figure = figureOf(tasks_[i]);
        send(reinterpret_cast<const char*>(&figure), sizeof figure);
    }
}

/// Up to the end, or to the face that breaks it. False when it makes no sense to go on behind that.
bool Measuring::measureInCopy() {
    rest_.clear();
    const double left = end_ - platform::processorSeconds();
    const auto receive = [this](const char* bytes, std::size_t length) { take(bytes, length); };
    const auto work = [this, left](const platform::TakeBytes& send) {
        measureFrom(figures_.size(), left, send);
    };
    const auto end = platform::runInCopy(work, receive, secondsForAFace);
    if (end == platform::CopyEnd::notOffered) measureFrom(figures_.size(), end_, receive);
    if (end != platform::CopyEnd::failed && end != platform::CopyEnd::limit) return false;
    if (figures_.size() < tasks_.size()) figures_.emplace_back();
    return platform::processorSeconds() < end_;
}

void Measuring::addFace(std::size_t index) {
    const WrittenFace& face = *tasks_[index].face;
    const Figure figure = index < figures_.size() ? figures_[index] : Figure{};
    if (!figure.isKnown) {
        return report_.noted("face", face.identifier, "its area couldn't be measured");
    }
    const double square = report_.unit.millimetres * report_.unit.millimetres;
    report_.faces.push_back({face.identifier, figure.measure.area * square,
                             (face.slack + figure.measure.areaUncertainty) * square,
                             figure.isValid});
}

void Measuring::addBody(const WrittenBody& body, std::size_t first) {
    if (!body.isWhole) return;
    double volume = 0.0, uncertainty = 0.0, slack = 0.0;
    for (std::size_t i = first; i < first + body.faces.size(); ++i) {
        if (i >= figures_.size() || !figures_[i].isKnown) return;
        const FaceMeasure& measure = figures_[i].measure;
        volume += measure.volume;
        uncertainty += measure.volumeUncertainty;
        slack += body.faces[i - first].slack + measure.areaUncertainty;
    }
    const double cube = std::pow(report_.unit.millimetres, 3);
    const double third = 2.0 * tasks_[first].place.reach / 3.0;
    report_.bodies.push_back(
        {body.identifier, body.shells, volume * cube, (slack * third + uncertainty) * cube});
}

void Measuring::perform() {
    while (figures_.size() < tasks_.size() && measureInCopy()) {
    }
    std::size_t first = 0;
    for (const WrittenBody& body : bodies_) {
        for (std::size_t i = 0; i < body.faces.size(); ++i) addFace(first + i);
        addBody(body, first);
        first += body.faces.size();
    }
}

} // namespace

void measureModel(const std::vector<WrittenBody>& bodies, double processorSeconds,
                  Progress& progress, Report& report) {
    Measuring(bodies, platform::processorSeconds() + processorSeconds, progress, report).perform();
}

} // namespace server
