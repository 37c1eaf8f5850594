// How a script names the widgets of a dialog: by the texts that the user sees, or the tooltip of a picture without one.
#pragma once

#include <string>
#include <vector>

#include "session/frame/Dialogs.h"

namespace easel::script {

/// All throw Error, naming what there is, when there is none of that text.
[[nodiscard]] session::Widget& widgetNamed(session::Dialog& dialog, std::int32_t kind, const std::string& text);
/// The field that the label or checkbox of this text is for, or else the one beside it: right of it before left.
[[nodiscard]] session::Widget& fieldNamed(session::Dialog& dialog, const std::string& label);
/// The text by which `fieldNamed` finds the field; empty when there is none.
[[nodiscard]] std::string nameOf(session::Dialog& dialog, const session::Widget& field);
/// "\"Yes\", \"No\"".
[[nodiscard]] std::string quoted(const std::vector<std::string>& texts);
/// Of what the user sees of this kind.
[[nodiscard]] std::vector<std::string> textsOf(const session::Dialog& dialog, std::int32_t kind);

} // namespace easel::script
