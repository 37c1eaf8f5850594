// Alerts in scripts: what a handler sees and does, and what comes of those without one.
#include <gtest/gtest.h>

#include "hostapi/SPBasic.h"
#include "hostapi/StageSuite.h"
#include "support/Playing.h"

namespace {

/// A plug-in that shows an alert when it is sent the message "Show", and answers the number of the chosen button, and
/// 10 more where nobody was asked. The selector is the alert's kind and buttons: "3 Yes No".
SPErr alerting(const char* caller, const char* selector, void* message) {
    const void* table = nullptr;
    if (std::string(caller) != "Show") return kNoErr;
    auto* const basic = static_cast<SPMessageData*>(message)->basic;
    if (basic->AcquireSuite(kStageSuite, kStageSuiteVersion, &table) != kNoErr) return 99;
    std::istringstream words(selector);
    std::int32_t kind = 0;
    words >> kind;
    std::vector<std::string> titles;
    for (std::string title; words >> title;) titles.push_back(title);
    std::vector<const char*> buttons;
    for (const std::string& title : titles) buttons.push_back(title.c_str());
    std::int32_t chosen = -1;
    AIBoolean asked = 0;
    const auto* const stage = static_cast<const StageSuite*>(table);
    const AIErr error =
        stage->ShowAlert(kind, "Sure?", buttons.data(), static_cast<std::int32_t>(buttons.size()), &chosen, &asked);
    basic->ReleaseSuite(kStageSuite, kStageSuiteVersion);
    return error == kNoErr ? chosen + (asked ? 0 : 10) : error == kBadParameterErr ? 50 : 99;
}

class Dialogs : public desk::Playing {
  protected:
    std::string playing(const std::string& handler, const std::string& selector = "3 Yes No") {
        return play("app.onDialog(" + handler + ");\nprint(app.sendMessage('Alerting', 'Show', '" + selector + "'));");
    }
    void SetUp() override {
        session.plugins.attach("Alerting", alerting);
        EXPECT_TRUE(session.start().empty());
    }
};

TEST_F(Dialogs, ArePrintedAndTakeTheirDefaultButtonWithoutAHandler) {
    EXPECT_EQ(playing("null", "1 OK"), "message: Sure?\n10\n");
    EXPECT_EQ(playing("undefined", "2 OK"), "error: Sure?\n10\n");
    EXPECT_EQ(playing("null"), "confirm: Sure? [Yes]\n10\n");
    for (const char* wrong : {"0 OK", "5 OK", "1", "1 a b c d"}) EXPECT_EQ(playing("null", wrong), "50\n") << wrong;
}

TEST_F(Dialogs, AreGivenToTheHandler) {
    const struct {
        const char* handler;
        const char* printed;
    } rows[] = {
        {"d => d.click('No')", "1: parse error ("}, // the language has no arrows
        {"function (d) { d.click('No'); }", "1\n"},
        {"function (d) { d.press('Return'); }", "0\n"},
        {"function (d) { d.press('Escape'); }", "1\n"},
        {"function (d) { d.close(); }", "1\n"},
        {"function (d) { print(d.kind, d.text, d.buttons, d.title + '|', d.widgets.length); d.close(); }",
         "confirm Sure? Yes,No | 0\n1\n"},
        {"function (d) { try { d.click('Maybe'); } catch (e) { print(e.message); } d.click('Yes'); }",
         "dialog.click: there is no button \"Maybe\", only \"Yes\", \"No\"\n0\n"},
        {"function (d) { d.close(); try { d.click('Yes'); } catch (e) { print(e.message); } }",
         "dialog.click: this dialog is closed\n1\n"},
        {"function (d) { }", "2: app.onDialog: the handler left its dialog open"},
        {"function (d) { d.press('Tab'); }",
         "1: dialog.press: an alert takes the keys \"Return\" and \"Escape\", not \"Tab\""},
        {"function (d) { throw 'enough'; }", "2: enough"},
        {"function (d) { d.close(); assert(false, 'no'); }", "1: assert: failed: no"},
        {"7", "1: app.onDialog: argument 1 (handler) must be a function, not 7"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(playing(row.handler).substr(0, std::string(row.printed).size()), row.printed) << row.handler;
}

TEST_F(Dialogs, NestAndAreGoneAfterwards) {
    EXPECT_EQ(play("var kept, depth = 0;\n"
                   "app.onDialog(function (d) {\n"
                   "  kept = d; depth += 1;\n"
                   "  if (depth < 3) print('inner', app.sendMessage('Alerting', 'Show', '3 A B C'));\n"
                   "  d.runFor(1); d.click(d.buttons[1]); });\n"
                   "print(app.sendMessage('Alerting', 'Show', '3 Yes No'));\n"
                   "try { kept.close(); } catch (e) { print(e.message); }\n"
                   "try { app.onDialog(function (d) { throw new Error('caught'); }); app.sendMessage('Alerting', "
                   "'Show', '1 OK'); }\n"
                   "catch (e) { print(e.message); }\n"
                   "app.onDialog(null); app.sendMessage('Alerting', 'Show', '1 OK');"),
              "inner 1\ninner 1\n1\ndialog.close: this dialog is closed\ncaught\nmessage: Sure?\n");
}

TEST_F(Dialogs, TheHandlerGoesWithItsScript) {
    int asked = 0;
    session.alerts.handler = [&](const easel::session::Alert&) { return static_cast<std::size_t>(++asked); };
    EXPECT_EQ(playing("function (d) { d.close(); }"), "1\n");
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(play("print(app.sendMessage('Alerting', 'Show', '4 a b c'));"), "1\n");
    EXPECT_EQ(asked, 1);
}

} // namespace
