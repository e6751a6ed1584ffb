#include "views/peripherals/WPeriphViewMonAttribs.h"

#include "db/Db.h"
#include "widgets/WLineEditZeq.h"
#include "widgets/WTextAreaZeq.h"

#include <Wt/WText>

#include <algorithm>
#include <array>

namespace {

constexpr SettingsTableSpec kSpec{
    .resource = "edid", .headings = {"[RSnnn]Attribute", "[RSnnn]Value"}, .width = 250};

// Read by the table; the keys are its own.
constexpr const char* kManufacturer = "manufacturerId";
constexpr const char* kProduct = "productCode";
constexpr const char* kType = "type";
constexpr std::array kBlockKeys = {kManufacturer, kProduct, kType};

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Name",
     .make = makeSettingsField<WLineEditZeq>,
     .key = "name",
     .maxLength = 40,
     .pattern = "^([ -~]*)$",
     .mandatory = true,
     .tooltip = "tt.periph.mon.attr.nameField",
     .editable = editableAlone},
    {.label = "[RSnnn]Description",
     .make = makeSettingsField<WTextAreaZeq>,
     .key = "description",
     .pattern = "([ -~\n]{0,64})",
     .tooltip = "tt.periph.mon.attr.descrField",
     .height = 54},
    {.label = "[RSnnn]Manufacturer ID", .make = makeSettingsField<Wt::WText>, .key = kManufacturer},
    {.label = "[RSnnn]Product Code", .make = makeSettingsField<Wt::WText>, .key = kProduct},
    {.label = "[RSnnn]Type", .make = makeSettingsField<Wt::WText>, .key = kType},
};

using BlockTexts = std::array<std::string, kBlockKeys.size()>;

/// False, and nothing, once a record cannot be read.
bool commonTexts(const std::vector<unsigned>& records, BlockTexts& common) {
    for (const unsigned record : records) {
        BlockTexts texts;
        std::vector<std::string> errors;
        if (Db::db.getEdidInfo(record, texts[0], texts[1], texts[2], errors) != 0) return false;
        texts[2] = Wt::WString::tr(texts[2]).toUTF8();
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (record == records.front())
                common[i] = texts[i];
            else if (common[i] != texts[i])
                common[i].clear();
        }
        // Nothing that a further record has can change this.
        if (std::all_of(common.begin(), common.end(), [](const auto& text) { return text.empty(); })) break;
    }
    return true;
}

} // namespace

WPeriphViewMonAttribsTable::WPeriphViewMonAttribsTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

void WPeriphViewMonAttribsTable::readFromDatabase(const Indexes& indexes, bool force) {
    WSettingsTable::readFromDatabase(indexes, force);
    mRecords = indexes.size();
    readBlocks(indexes);
    lockProtected();
}

void WPeriphViewMonAttribsTable::readBlocks(const Indexes& indexes) {
    BlockTexts common;
    if (!commonTexts(indexes, common)) common = {};
    for (std::size_t i = 0; i < common.size(); ++i)
        widget<Wt::WText>(kBlockKeys[i])->setText(Wt::WString::fromUTF8(common[i]));
}

void WPeriphViewMonAttribsTable::setProtected(bool isProtected) {
    mProtected = isProtected;
    lockProtected();
}

void WPeriphViewMonAttribsTable::lockProtected() {
    setRowEnabled("name", mRecords == 1 && !mProtected);
    setRowEnabled("description", mRecords > 0 && !mProtected);
}

WPeriphViewMonAttribs::WPeriphViewMonAttribs(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_MON_ATTRIBS, {InfoMgr_InfoID::Edids}),
      mTable(new WPeriphViewMonAttribsTable) {
    setTables({mTable});
}
