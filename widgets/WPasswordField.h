#pragma once

#include "widgets/SettingsField.h"
#include "widgets/WLineEditZeq.h"

#include <Wt/WStackedWidget>

/// A password that is set, not shown: the field of one record. Several records show an empty field in its
/// place that cannot be typed into. Two rows make the pair that a page needs, the second with `.repeats`.
class WPasswordField : public Wt::WStackedWidget {
public:
    WPasswordField(const char* resource, const char* key, bool indexed,
                   Wt::WContainerWidget* parent = nullptr);

    /// Several records: the empty field, and whatever was typed before is gone.
    void showFor(std::size_t records);
    void resize(const Wt::WLength& width, const Wt::WLength& height) override; // of each field
    void setDisabled(bool disabled) override;

    WLineEditZeq& field() const { return *mField; }

private:
    WLineEditZeq* mField;
    Wt::WLineEdit* mEmpty;
};

/// A row's password field.
SettingsField makePasswordField(const char* resource, const char* key, bool indexed,
                                Wt::WContainerWidget* cell);
