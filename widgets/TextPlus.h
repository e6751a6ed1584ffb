#pragma once

#include <Wt/WSignal>
#include <Wt/WString>

#include <string>

namespace Wt {
class WContainerWidget;
class WTimer;
} // namespace Wt

/// A text field of the toolkit that reports what is typed into it within half a second, or when it loses the
/// focus, and that a refresh does not disturb. Text is Wt::WLineEdit or Wt::WTextArea.
template <class Text>
class TextPlus : public Text {
public:
    explicit TextPlus(Wt::WContainerWidget* parent);

    /// Does nothing while the field has the focus or holds an edit not reported yet.
    void setText(const Wt::WString& text) override;
    /// Shows that records differ, as a hint in the empty field, until there is another text or an edit.
    void showDifference();
    /// How often the text is looked at while the field has the focus, in milliseconds.
    void timerIntervalSet(unsigned milliseconds);

    /// The new text, UTF-8.
    Wt::Signal<std::string>& valueChanged() { return mValueChangedSignal; }

private:
    void focusGained();
    void focusLost();
    void lookForChange();

    Wt::Signal<std::string> mValueChangedSignal;
    Wt::WString mLastValue; // the text last known to the server side
    Wt::WTimer* mChangeTimer;
};
