#include "widgets/WPasswordField.h"

WPasswordField::WPasswordField(const char* resource, const char* key, bool indexed,
                               Wt::WContainerWidget* parent)
    : Wt::WStackedWidget(parent), mField(new WLineEditZeq(resource, key, indexed)),
      mEmpty(new Wt::WLineEdit) {
    mField->setEchoMode(Wt::WLineEdit::Password);
    mField->setAutoComplete(false);
    mEmpty->setDisabled(true);
    for (Wt::WLineEdit* page : {static_cast<Wt::WLineEdit*>(mField), mEmpty}) {
        page->addStyleClass(kLineEditStyle);
        addWidget(page);
    }
}

void WPasswordField::showFor(std::size_t records) {
    const bool several = records > 1;
    if (several) {
        mField->setText("");
        mField->clearContentChanged();
    }
    setCurrentIndex(several ? 1 : 0);
}

void WPasswordField::resize(const Wt::WLength& width, const Wt::WLength& height) {
    for (Wt::WLineEdit* page : {static_cast<Wt::WLineEdit*>(mField), mEmpty}) {
        if (!width.isAuto()) page->setWidth(width);
        if (!height.isAuto()) page->setHeight(height);
    }
}

void WPasswordField::setDisabled(bool disabled) {
    Wt::WStackedWidget::setDisabled(disabled);
    mField->setDisabled(disabled);
}

SettingsField makePasswordField(const char* resource, const char* key, bool indexed,
                                Wt::WContainerWidget* cell) {
    auto* password = new WPasswordField(resource, key, indexed, cell);
    SettingsField field;
    field.widget = password;
    field.bound = &password->field();
    field.form = &password->field();
    field.refresh = [](Wt::WWidget& widget, const WWidgetZeq::Indexes& indexes) {
        dynamic_cast<WPasswordField&>(widget).showFor(indexes.size());
    };
    field.cellStyle = kReadWriteCell;
    field.namedBy = NamedBy::Label;
    return field;
}
