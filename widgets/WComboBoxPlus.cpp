#include "widgets/WComboBoxPlus.h"

WComboBoxPlus::WComboBoxPlus(Choices choices, Wt::WContainerWidget* parent)
    : Wt::WComboBox(parent), mChoices(choices) {
    for (const Triplet& choice : mChoices) addItem(tr(choice.labelKey));
}

unsigned WComboBoxPlus::setCurrentIndexByValue(int number) {
    for (int i = 0; i < choiceCount(); ++i) {
        if (mChoices[static_cast<std::size_t>(i)].number != number) continue;
        setCurrentIndex(i);
        return 0;
    }
    return 1;
}

const WComboBoxPlus::Triplet* WComboBoxPlus::currentChoice() const {
    const int current = currentIndex();
    return current >= 0 && current < choiceCount() ? &mChoices[static_cast<std::size_t>(current)] : nullptr;
}

std::string WComboBoxPlus::selection() const {
    const Triplet* choice = currentChoice();
    return choice && choice->dbValue ? choice->dbValue : "";
}

int WComboBoxPlus::value() const {
    const Triplet* choice = currentChoice();
    return choice ? choice->number : 0;
}

Wt::WString WComboBoxPlus::textOf(const std::string& dbValue) const {
    for (const Triplet& choice : mChoices)
        if (choice.dbValue && dbValue == choice.dbValue) return tr(choice.labelKey);
    return Wt::WString::fromUTF8(dbValue);
}
