#pragma once

#include <Wt/WDialog>

#include <array>

namespace Wt {
class WCheckBox;
class WPushButton;
class WTable;
} // namespace Wt

/// Question, warning or timed notice with up to three buttons and a check box. Made on the stack, filled in
/// the order title, message, check box, buttons, and run with exec(); Escape rejects it.
///
///     WMsgBox box(WMsgBox::Warning);
///     box.titleSet(tr("…")); box.msgSet(tr("…")); box.buttonAdd(tr("…")); box.buttonAdd(tr("…"));
///     box.exec();
///     if (box.buttonClicked() == 1) …
class WMsgBox : public Wt::WDialog {
public:
    enum MsgType { Info, Warning, Error };

    explicit WMsgBox(MsgType type);
    ~WMsgBox() override;

    void titleSet(const Wt::WString& title);
    /// Text as it stands, no markup; line ends start new lines. The const char* form takes UTF-8.
    void msgSet(const Wt::WString& message);
    void msgSet(const char* message);
    /// An address to open, below the message, which comes first.
    void linkAdd(const std::string& address);
    void checkBoxSet(const Wt::WString& text);
    /// The first button stands rightmost and has the focus; the second and third follow to its left.
    /// A fourth is ignored.
    void buttonAdd(const Wt::WString& text);
    /// Gives a button that was added the focus, in the place of the first one. Other numbers change nothing.
    void focusSet(int number);

    /// Runs the box for at most that many milliseconds.
    void execWithTimeout(unsigned int ms);

    /// Number of the button that ended the box, from 1 in order of adding; 0 when none did.
    int buttonClicked() const { return mButtonClicked; }
    /// Also after the box was ended without a button. False when there is no check box.
    bool isCheckBoxChecked() const;

    virtual void button1ClickedHandler();
    virtual void button2ClickedHandler();
    virtual void button3ClickedHandler();
    virtual void timeoutHandler();

private:
    static constexpr int kMaxButtons = 3;

    void buttonClickedHandler(int number);

    MsgType mType;
    Wt::WTable* mFrameTable;
    Wt::WTable* mButtonTable;
    Wt::WCheckBox* mCheckBox = nullptr;
    std::array<Wt::WPushButton*, kMaxButtons> mButtons{}; // in order of adding
    int mButtonCount = 0;
    int mButtonClicked = 0;
};
