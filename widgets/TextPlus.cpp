#include "widgets/TextPlus.h"

#include <Wt/WLineEdit>
#include <Wt/WTextArea>
#include <Wt/WTimer>

#include <type_traits>

namespace {

constexpr unsigned kChangeInterval = 500; // milliseconds

} // namespace

template <class Text>
TextPlus<Text>::TextPlus(Wt::WContainerWidget* parent) : Text(parent), mChangeTimer(new Wt::WTimer(this)) {
    timerIntervalSet(kChangeInterval);
    this->focussed().connect(this, &TextPlus::focusGained);
    this->blurred().connect(this, &TextPlus::focusLost);
    // In one line Enter ends the typing: whoever acts on it finds the edit reported.
    if constexpr (std::is_same_v<Text, Wt::WLineEdit>)
        this->enterPressed().connect(this, &TextPlus::lookForChange);
    mChangeTimer->timeout().connect(this, &TextPlus::lookForChange);
}

template <class Text>
void TextPlus<Text>::setText(const Wt::WString& text) {
    if (this->text() != mLastValue || this->hasFocus()) return;
    mLastValue = text;
    Text::setText(text);
    this->setEmptyText(Wt::WString());
}

template <class Text>
void TextPlus<Text>::showDifference() {
    setText(Wt::WString());
    if (this->text().empty()) this->setEmptyText(Wt::WString::tr("page.different"));
}

template <class Text>
void TextPlus<Text>::timerIntervalSet(unsigned milliseconds) {
    mChangeTimer->setInterval(static_cast<int>(milliseconds));
}

template <class Text>
void TextPlus<Text>::focusGained() {
    mChangeTimer->start();
}

template <class Text>
void TextPlus<Text>::focusLost() {
    mChangeTimer->stop();
    lookForChange();
}

template <class Text>
void TextPlus<Text>::lookForChange() {
    if (this->text() == mLastValue) return;
    const std::string text = this->text().toUTF8();
    mLastValue = this->text();
    this->setEmptyText(Wt::WString());
    mValueChangedSignal.emit(text);
}

template class TextPlus<Wt::WLineEdit>;
template class TextPlus<Wt::WTextArea>;
