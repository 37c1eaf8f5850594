// The drawing in the window: shows the document in front, and turns mouse, wheel and keys into acts.
#pragma once

#include <QBasicTimer>
#include <QCursor>
#include <QPointF>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/Actions.h"
#include "app/Scene.h"
#include "app/Settings.h"
#include "app/TruePictures.h"
#include "app/Watch.h"

namespace easel::app {

/// What the mouse does that is no tool's business.
enum class Handling { Tool, Hand, Zoom };

class Canvas final : public QWidget {
  public:
    explicit Canvas(Actions& actions);
    ~Canvas() override;

    // What the window sets and hears
    std::function<void()> viewChanged;                   ///< zoom, place, where the mouse is
    std::function<void(const std::string& text)> remark; ///< for the status bar; empty: nothing to say
    std::function<void(const std::string& text)> tell;   ///< about the picture, as long as the drawing shows
    std::function<session::Modifiers()> heldByToggles;   ///< modifiers that are switched on
    [[nodiscard]] std::optional<model::Point> mouse() const { return mouse_; } ///< in points; none outside

    /// Another document is in front, or the same is shown for the first time.
    void showDocument();
    /// The farthestReach of the document that is shown next, which takes time to find out.
    void expectReach(double reach) { knownReach_ = reach; }
    void leaveDocument(); ///< which is about to go
    /// Paints what has changed since the last time. Returns whether that was anything but a selection.
    bool refresh();
    /// Ends a gesture at once, as Escape does.
    void cancelGesture();
    void setHandling(Handling handling);
    /// What the empty desk says; nothing: how to begin.
    void setNotice(const QString& notice);
    [[nodiscard]] Handling handling() const { return handling_; }

    // View
    void zoomTo(double zoom, std::optional<QPointF> fixed = {}); ///< about a place of the widget; else its middle
    void zoomBy(double factor, std::optional<QPointF> fixed = {});
    void fitPage();
    void panBy(QPointF way); ///< in widget pixels
    [[nodiscard]] bool hasDocument() const { return document() != nullptr; }
    [[nodiscard]] double zoom() const; ///< 1: a point of the drawing is a pixel of the widget
    [[nodiscard]] model::Point toDocument(QPointF place) const;
    [[nodiscard]] QPointF fromDocument(model::Point point) const;
    /// Whether all that shows is painted as exactly as it will ever be.
    [[nodiscard]] bool isTrue() const;
    KeyMeanings keys;
    bool feedbackShown = true;  ///< length and angle beside the pointer
    int restMilliseconds = 150; ///< after a change, before true pictures are made

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    [[nodiscard]] model::Document* document() const { return actions_.document(); }
    [[nodiscard]] bool dragging() const { return actions_.session().pointer.pressed(); }
    [[nodiscard]] session::Modifiers modifiersOf(Qt::KeyboardModifiers down) const;
    [[nodiscard]] double pageZoom() const;
    void updatePort();
    void showView();
    [[nodiscard]] bool wantsTruth();
    [[nodiscard]] TruePictures::Order orderOf(Piece piece, std::uint64_t number) const;
    void takeTruth(const TruePictures::Order& order, const QImage& image);
    void missTruth(const TruePictures::Order& order, const std::string& why);
    /// Writes the document for true pictures, unless that is done. Returns whether it can be written.
    bool updateText();
    void askForTruth();
    void askForPieces();
    void dropPieces();
    [[nodiscard]] bool settleGesture();
    void showCursor();
    [[nodiscard]] std::optional<QCursor> pluginCursor() const;
    void hover(session::Modifiers held);
    void dragAgain(session::Modifiers modifiers);
    bool typeLength(const QKeyEvent& event);
    void hearKey(const QKeyEvent& event);
    bool nudge(const QKeyEvent& event);
    [[nodiscard]] Handling handlingNow() const { return spaceHeld_ ? Handling::Hand : handling_; }

    // Painting
    void paintDesk(QPainter& painter) const;
    void paintGrid(QPainter& painter, const QRect& part) const;
    void paintMarquee(QPainter& painter) const;
    void paintSelection(QPainter& painter) const;
    void paintMarks(QPainter& painter) const;
    void paintFeedback(QPainter& painter) const;
    [[nodiscard]] std::string feedback() const;

    Actions& actions_;
    Watch watch_;
    Scene scene_;
    TruePictures truths_;
    QBasicTimer refineTimer_;
    QBasicTimer truthTimer_;
    Handling handling_ = Handling::Tool;
    bool spaceHeld_ = false;
    std::optional<QPointF> panFrom_;
    std::optional<model::Point> mouse_;
    QPointF lastPlace_;       ///< of the mouse, in the widget
    std::string typedLength_; ///< during a gesture
    std::string lastRemark_;
    QString notice_;
    std::optional<double> knownReach_;
    std::uint64_t lastOrder_ = 0;             ///< of a true picture
    bool truthFails_ = false;                 ///< for the document as it is
    bool sizeIsKnown_ = false;                ///< whether its user knows that it is too large for true pictures
    std::shared_ptr<const std::string> text_; ///< of the document, as SVG
    std::uint64_t textChanges_ = 0;           ///< the document's count then
    bool truthIsDue_ = false;                 ///< was asked for, or will be
    bool inGesture_ = false;                  ///< at the last refresh
    bool textIsOfBefore_ = false;             ///< the running gesture
    std::uint64_t lastPieces_ = 0;            ///< that were asked for together
    std::size_t piecesDue_ = 0;               ///< of them
};

} // namespace easel::app
