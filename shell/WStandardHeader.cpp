#include "shell/WStandardHeader.h"

#include "db/Db.h"
#include "shell/MirlPath.h"
#include "shell/WHeaderLinks.h"

#include <Wt/WImage>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>

namespace {

constexpr unsigned kThisSwitch = 1;
constexpr int kTextCellWidthPx = 2000; // takes all the room that there is

void addLogo(Wt::WTableCell* cell, const char* file) {
    auto* image = new Wt::WImage(Wt::WLink(MirlPath_themeBase() + file), cell);
    image->setAlternateText("");
}

Wt::WString headerText(const std::string& username) {
    std::string text = Wt::WString::tr("[RSnnn]Orvane, user:").toUTF8() + "  " + username;
    std::string switchName;
    std::vector<std::string> errors;
    Db::db.readString("swx", kThisSwitch, "name", switchName, errors);
    if (!switchName.empty())
        text += ", " + Wt::WString::tr("[RSnnn]logged in to").toUTF8() + " " + switchName;
    return Wt::WString::fromUTF8(text);
}

} // namespace

WStandardHeader::WStandardHeader(const std::string& username, Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent) {
    setStyleClass("mirl-header-overall");
    auto* table = new Wt::WTable(this);
    addLogo(table->elementAt(0, 0), "logo-primary-page-header.png");

    Wt::WTableCell* middle = table->elementAt(0, 1);
    middle->setStyleClass("mirl-header-logo-middle");
    addLogo(middle, "logo-secondary-page-header.png");

    Wt::WTableCell* textCell = table->elementAt(0, 2);
    textCell->setWidth(kTextCellWidthPx);
    auto* text = new Wt::WText(headerText(username), Wt::PlainText, textCell);
    text->setStyleClass("mirl-header-text-middle");
    mServiceNote = new Wt::WText(textCell);
    mServiceNote->setStyleClass("mirl-service-note");
    mServiceNote->setAttributeValue("role", "status");

    Wt::WTableCell* right = table->elementAt(0, 3);
    right->setStyleClass("mirl-header-rhs");
    new WHeaderLinks(right);
}

void WStandardHeader::setServiceAway(bool away) {
    mServiceNote->setText(away ? tr("mirl.service.away") : Wt::WString());
}
