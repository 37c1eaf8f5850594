// The annotators of plug-ins: the marks that they drew last, and what of these has to be drawn anew.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hostapi/AIAnnotatorSuite.h"
#include "model/Mark.h"
#include "session/base/Handles.h"
#include "session/documents/Documents.h"
#include "session/frame/Held.h"
#include "session/frame/Messenger.h"

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
    Annotations(Messenger& messenger, const Documents& documents, const Held& held)
        : messenger_(messenger), documents_(documents), held_(held) {}

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
    [[nodiscard]] const ViewState& view() const { return view_; } ///< that was drawn last

    // Drawing
    /// Brings the marks over the document in front up to date, with the messages that this takes. They change nothing.
    /// Does nothing while an annotator draws.
    void update();
    [[nodiscard]] Drawing* findDrawing(AIDrawingContextHandle handle);

  private:
    /// What the view shows from now on. The marks over another document are gone.
    void setView(const ViewState& view);
    [[nodiscard]] Annotator* findActive(AIAnnotatorHandle handle) const;
    void askInvalid(AIAnnotatorHandle handle, AIAnnotatorMessage message);
    void draw(AIAnnotatorHandle handle, AIAnnotatorMessage message, const model::Box& visible);
    /// Takes the annotator's marks away, and makes a drawing for new ones.
    void begin(Annotator& annotator, const model::Box& visible);
    /// Gives the drawing's marks to the annotator, unless it is gone or inactive by now.
    void end(AIAnnotatorHandle annotator);

    Messenger& messenger_;
    const Documents& documents_;
    const Held& held_;
    Registry<Annotator, AIAnnotatorHandle> annotators_;
    ViewState view_;
    std::optional<Drawing> drawing_;
    std::uint32_t lastDrawing_ = 0;
};

} // namespace easel::session
