// The annotators of plug-ins: the marks that they drew last, and what of these has to be drawn anew. Sends no messages
// itself (see Session::updateAnnotations).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hostapi/AIAnnotatorSuite.h"
#include "model/Document.h"
#include "model/Mark.h"
#include "session/Handles.h"
#include "session/Plugins.h"

namespace easel::session {

/// Places of the view, in points of the document.
struct Places {
    std::vector<model::Box> boxes;
    bool all = false;

    [[nodiscard]] bool isEmpty() const { return boxes.empty() && !all; }
};

struct Annotator {
    AIAnnotatorHandle handle = nullptr;
    Plugin* owner = nullptr;
    std::string name;
    std::int32_t options = 0;
    bool active = true;
    Places invalid{.boxes = {}, .all = true};
    std::vector<model::Mark> marks;
};

/// What a view shows. Annotators are asked what is invalid when any of it differs.
struct ViewState {
    std::uint32_t document = 0; ///< number; 0 for none
    std::uint64_t changes = 0;  ///< of the document so far
    model::View view;

    bool operator==(const ViewState&) const = default;
};

/// What one annotator draws at the moment.
struct Drawing {
    AIDrawingContextHandle handle = nullptr;
    std::vector<model::Box> places; ///< where it has to draw: what was invalid, and where its marks were
    model::Pen pen;
    std::vector<model::Mark> marks;
};

class Annotations {
  public:
    Annotator& add(Plugin& owner, std::string_view name);
    void remove(Annotator& annotator) { annotators_.remove(annotator); }
    template <class Predicate> void removeIf(Predicate predicate) { annotators_.removeIf(predicate); }

    [[nodiscard]] Annotator* find(AIAnnotatorHandle handle) const { return annotators_.find(handle); }
    /// Later ones draw over earlier ones.
    [[nodiscard]] std::vector<Annotator*> all() const { return annotators_.all(); }

    /// The marks of one that becomes inactive are gone.
    static void setActive(Annotator& annotator, bool active);

    // What is to be drawn anew
    void invalidate(const model::Box& place);
    void invalidateAll();
    /// What the view shows from now on. The marks over another document are gone.
    void setView(const ViewState& view);
    [[nodiscard]] const ViewState& view() const { return view_; }

    // Drawing, one annotator at a time
    /// Takes the annotator's marks away, and gives it those that come to the drawing while `body` runs, unless it is
    /// gone by then.
    template <class Body> void draw(Annotator& annotator, const model::Box& visible, Body body) {
        const AIAnnotatorHandle handle = annotator.handle;
        begin(annotator, visible);
        body(*drawing_);
        end(handle);
    }
    [[nodiscard]] const Drawing* drawing() const { return drawing_ ? &*drawing_ : nullptr; }
    [[nodiscard]] Drawing* findDrawing(AIDrawingContextHandle handle);

  private:
    void begin(Annotator& annotator, const model::Box& visible);
    void end(AIAnnotatorHandle annotator);

    Registry<Annotator, AIAnnotatorHandle> annotators_;
    ViewState view_;
    std::optional<Drawing> drawing_;
    std::uint32_t lastDrawing_ = 0;
};

} // namespace easel::session
