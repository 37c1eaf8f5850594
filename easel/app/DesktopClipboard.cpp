// Drawings are SVG there, or text that is.
#include "app/DesktopClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace easel::app {

namespace {

constexpr const char* kType = "image/svg+xml";

} // namespace

void offerToOthers(const session::Clipboard& clipboard) {
    if (clipboard.isEmpty()) return;
    auto* const data = new QMimeData;
    data->setData(kType, QByteArray::fromStdString(clipboard.text()));
    QGuiApplication::clipboard()->setMimeData(data);
}

std::optional<std::string> copiedByOthers(const session::Clipboard& clipboard) {
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    if (!data) return std::nullopt;
    QByteArray drawing = data->data(kType);
    if (!data->hasFormat(kType) && data->hasText() && data->text().contains("<svg")) drawing = data->text().toUtf8();
    if (drawing.isEmpty() || drawing.toStdString() == clipboard.text()) return std::nullopt;
    return drawing.toStdString();
}

} // namespace easel::app
