#pragma once

#include <Wt/WComboBox>

#include <span>
#include <string>

/// A combo box over a constant table of choices; the items stand in the table's order.
class WComboBoxPlus : public Wt::WComboBox {
public:
    struct Triplet {
        const char* dbValue;  // 0 = the choice has none
        const char* labelKey; // message key
        int number;           // of the enumeration
    };
    using Choices = std::span<const Triplet>;

    /// The table is a constant, not owned.
    explicit WComboBoxPlus(Choices choices, Wt::WContainerWidget* parent = nullptr);

    /// Selects the first choice of that number: 0. Without one the selection stays: 1.
    virtual unsigned setCurrentIndexByValue(int number);

    /// Database string of the current choice; "" when none is current.
    virtual std::string selection() const;
    /// What the box shows for a database string; the string itself when no choice has it.
    Wt::WString textOf(const std::string& dbValue) const;
    /// Number of the current choice; 0 when none is current.
    virtual int value() const;

protected:
    const Choices& choices() const { return mChoices; }
    int choiceCount() const { return static_cast<int>(mChoices.size()); }
    /// The current row of the table; 0 behind its end.
    const Triplet* currentChoice() const;

private:
    Choices mChoices;
};
