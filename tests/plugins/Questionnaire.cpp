// A plug-in with one dialog, which writes down what its callbacks hear: a line each into the file that the environment
// variable QUESTIONNAIRE names. The message "Questionnaire", "Show" shows it. Built for every platform of dialogs.
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include "core/app/Plugin.h"
#include "core/dialogs/Alerts.h"
#include "core/dialogs/Checkbox.h"
#include "core/dialogs/ModalDialog.h"
#include "core/frame/Dispatcher.h"

namespace {

using namespace kzo::core;

class Questionnaire {
  public:
    explicit Questionnaire(Plugin* plugin) {
        plugin->dispatcher()->registerMessageCallback("Questionnaire", "Show", callback([this] { show(); }));
        plugin->setPostStartupCallback(callback([this] { build(); }));
        plugin->setPreShutdownCallback(callback([this] { dialog_.destroy(); }));
    }

    static inline std::unique_ptr<Questionnaire> theOne;

  private:
    static void say(const std::string& line) {
        const char* const file = std::getenv("QUESTIONNAIRE");
        if (file) std::ofstream(file, std::ios::app) << line << std::endl;
    }

    void build() {
        dialog_ = ModalDialog("Questionnaire", {240, 100}, {true, callback([this] { say("OK " + texts()); }), true, ""},
                              {true, callback([this] { say("Cancel " + texts()); }), true, ""});
        zLabel_.setTextField(z_);
        xLabel_.setClickCallback(callback([this] { x_.focus(); }));
        xLabel_.setDoubleClickCallback(callback([] { say("double click"); }));
        z_.setValueChangingCallback(callback([this] {
            say("typed " + keyName() + ": " + z_.text());
            complete();
        }));
        x_.setValueChangingCallback(callback([this] { acceptDigits(); }));
        z_.setValueChangedCallback(callback([this] { check(); }));
        x_.setValueChangedCallback(callback([this] { check(); }));
        box_.setClickCallback(callback([this] { toggle(); }));
        more_.setClickCallback(callback([this] { say("More " + texts()); }));
        again_.setClickCallback(callback([] { say("Again"); }));
        again_.setDoubleClickCallback(callback([] { say("Again, twice"); }));
        again_.setText("Again");
        again_.setImages(kKnife);
        picture_.setText("Picture");
        picture_.setClickCallback(callback([] { say("Picture"); }));
        picture_.setDoubleClickCallback(callback([] { say("Picture, twice"); }));
        for (const Widget& widget : {Widget(zLabel_), Widget(z_), Widget(xLabel_), Widget(x_), Widget(box_),
                                     Widget(more_), Widget(again_), Widget(picture_)})
            dialog_.addWidget(widget);
        dialog_.setTabOrder({z_, x_});
    }

    [[nodiscard]] std::string texts() const { return z_.text() + " " + x_.text(); }

    /// Keys without a character by their number.
    [[nodiscard]] std::string keyName() const {
        const std::string typed = z_.lastCharTyped();
        if (typed.size() != 3 || typed[0] != '\xEF') return typed;
        constexpr const char* kDigits = "0123456789ABCDEF";
        const auto low = static_cast<unsigned char>(typed[2]) & 0x3FU;
        return std::string("F7") + kDigits[low >> 4U] + kDigits[low & 0xFU];
    }

    void show() {
        z_.setText("30");
        x_.setText("7");
        x_.setEnabled(true);
        box_.setChecked(false);
        dialog_.show();
        say("chosen " + (dialog_.chosenButton().isEmpty() ? "none" : dialog_.chosenButton().text()));
    }

    /// As fields do that know what is mostly meant: what is typed on replaces what was added.
    void complete() {
        if (z_.text() != "7" || z_.lastCharTyped() == "\x7f") return;
        z_.setText("785");
        z_.setSelectionRange({1, 3});
    }

    /// A text above 90 is complained about, once.
    void check() {
        const bool isZ = Widget::lastValueChangedWidget() == z_;
        const TextField& field = isZ ? z_ : x_;
        say(std::string(isZ ? "Z" : "X") + " is " + field.text());
        if (field.text() != "95") return;
        say("alert");
        alerts::message("Too large");
        z_.focus();
    }

    void acceptDigits() {
        const std::string typed = x_.lastCharTyped();
        if (typed == "\x7f" || (typed >= "0" && typed <= "9"))
            lastGood_ = x_.text();
        else
            x_.setText(lastGood_);
    }

    void toggle() {
        say(box_.checked() ? "checked" : "unchecked");
        x_.setEnabled(!box_.checked());
    }

    ModalDialog dialog_;
    Label zLabel_{{16, 18}, "Z:", 120};
    TextField z_{{136, 16}, "", 80};
    Label xLabel_{{16, 42}, "X:", 120};
    TextField x_{{136, 40}, "", 80};
    Checkbox box_{{16, 66}, "Lock X", 208, CheckboxState::Unchecked};
    Button more_{{16, 90}, "More", 80};
    static constexpr WidgetImages kKnife{17000, 17010, 17002};
    Button again_{{104, 90}, "", 24};
    Label picture_{{136, 90}, kKnife};
    std::string lastGood_ = "7";
};

} // namespace

bool kzo::core::pluginSetup(Plugin* plugin) {
    Questionnaire::theOne = std::make_unique<Questionnaire>(plugin);
    return true;
}

void kzo::core::pluginDestroy(Plugin*) { Questionnaire::theOne.reset(); }
