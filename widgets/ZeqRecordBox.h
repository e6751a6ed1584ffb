#pragma once

#include "widgets/WWidgetZeq.h"

#include <Wt/WComboBox>

/// A bound combo box whose choices are records, read anew with each value. The last item is blank: it
/// shows records that differ, and values that no choice has. Value is what the field stores: a text,
/// or a number (unsigned).
template <class Value>
class ZeqRecordBox : public Wt::WComboBox, public WWidgetZeq {
public:
    enum class Focus { KeepsBox, IsIgnored };

    /// `focus`: whether a box that has the focus is left alone.
    ZeqRecordBox(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent,
                 Focus focus = Focus::KeepsBox);

    unsigned readFromDatabase(const Indexes& indexes, Errors& errors, bool force) override;
    void getZeqParam(const json_t* table, const Indexes& indexes, bool force) override;
    /// Fills the box, the blank item last. 1 = the choices could not be read: the box is then empty.
    virtual unsigned updateListOfChoices() = 0;
    virtual void contentChangedHandler();

protected:
    /// Item of a stored value; -1 when no choice has it.
    virtual int itemOf(const Value& value) const = 0;

    void addBlank() { addItem(Wt::WString()); }
    bool blankIsShown() const { return currentIndex() == count() - 1; }

private:
    bool isLeftAlone(bool force) const;
    void showBlank() { setCurrentIndex(count() - 1); }
    void showMerged(unsigned result, bool same, const Value& value);

    Focus mFocus;
};

/// The same, storing a text that is made from the item's.
class ZeqTextRecordBox : public ZeqRecordBox<std::string> {
public:
    using ZeqRecordBox::ZeqRecordBox;

    /// Up to the first failure. An empty text is not written to records; the result is then 1.
    unsigned writeToDatabase(const Indexes& indexes, Errors& errors) override;
    void setZeqParam(json_t* params) override;

protected:
    /// The text to store for an item's text.
    virtual std::string storedText(const std::string& itemText) const { return itemText; }

    int itemOf(const std::string& value) const override;
};
