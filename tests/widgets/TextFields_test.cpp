// The read, extract and write rules of all fields that hold one text or one number.

#include "tests/widgets/WidgetTest.h"

#include "widgets/WAnchorZeq.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WLineEditZeq.h"
#include "widgets/WTextAreaZeq.h"
#include "widgets/WTextZeq.h"
#include "widgets/WUInt32Zeq.h"

namespace {

// How each class is made, and what it shows for the records.
template <class Widget>
constexpr bool kNumber = std::is_base_of_v<ZeqField<unsigned>, Widget>;
template <class Widget>
constexpr bool kEditable = std::is_base_of_v<Wt::WFormWidget, Widget>;

template <class Widget>
class TextFields : public WidgetTest {
protected:
    Widget* make(bool indexed = true) {
        return new Widget(indexed ? "r" : "g", kNumber<Widget> ? "n" : "t", indexed, page());
    }
    static std::string a() { return kNumber<Widget> ? "7" : "A"; }
    static std::string b() { return kNumber<Widget> ? "8" : "B"; }
    static std::string shown(const Widget* widget) { return widget->text().toUTF8(); }
};

using All = testing::Types<WLineEditZeq, WTextAreaZeq, WLineEditUInt32Zeq, WTextZeq, WUInt32Zeq, WAnchorZeq>;
TYPED_TEST_SUITE(TextFields, All);

TYPED_TEST(TextFields, ReadShowsWhatTheRecordsShare) {
    const struct {
        Db::Indexes indexes;
        unsigned result;
        bool value; // shows the value of record 1, else nothing
        std::size_t requests;
    } rows[] = {
        {{1}, 0, true, 1},     {{1, 2}, 0, true, 2},     {{2, 1, 2}, 0, true, 3},  {{}, 0, false, 0},
        {{1, 3}, 0, false, 2}, {{1, 3, 5}, 0, false, 2}, {{1, 2, 3}, 0, false, 3},
    };
    TypeParam* widget = this->make();
    for (const auto& r : rows) {
        SCOPED_TRACE(testing::PrintToString(r.indexes));
        this->store.forget();
        EXPECT_EQ(widget->readFromDatabase(r.indexes, this->errors, false), r.result);
        EXPECT_EQ(this->shown(widget), r.value ? this->a() : "");
        EXPECT_EQ(this->store.requests().size(), r.requests);
        EXPECT_FALSE(widget->hasChangedContent());
    }
}

TYPED_TEST(TextFields, AFailedReadKeepsWhatCanBeEdited) {
    TypeParam* widget = this->make();
    widget->readFromDatabase({1}, this->errors, false);
    for (const Db::Indexes& failing : {Db::Indexes{5}, Db::Indexes{1, 5}}) {
        EXPECT_EQ(widget->readFromDatabase(failing, this->errors, true), 1U);
        EXPECT_EQ(this->shown(widget), kEditable<TypeParam> ? this->a() : "");
    }
    EXPECT_EQ(this->errors.size(), 2U);
}

TYPED_TEST(TextFields, ExtractShowsWhatTheRowsShare) {
    const struct {
        Db::Indexes rows, indexes;
        bool value;
    } rows[] = {
        {{1}, {1}, true},        {{1, 2}, {1, 2}, true}, {{3, 2, 1}, {1, 2}, true},
        {{1, 3}, {1, 3}, false}, {{1}, {}, false},       {{1}, {1, 2}, false},
    };
    TypeParam* widget = this->make();
    for (const auto& r : rows) {
        SCOPED_TRACE(testing::PrintToString(r.rows) + " for " + testing::PrintToString(r.indexes));
        this->store.forget();
        widget->getZeqParam(this->table(r.rows).get(), r.indexes, false);
        EXPECT_EQ(this->shown(widget), r.value ? this->a() : "");
        EXPECT_TRUE(this->store.requests().empty());
    }
}

TYPED_TEST(TextFields, ASingletonHasNoIndex) {
    TypeParam* widget = this->make(false);
    EXPECT_EQ(widget->readFromDatabase({}, this->errors, false), 0U);
    EXPECT_EQ(this->shown(widget), kNumber<TypeParam> ? "9" : "S");
    EXPECT_EQ(widget->readFromDatabase({1, 2, 3}, this->errors, false), 0U);
    EXPECT_EQ(this->store.requests().size(), 2U);
}

template <class Widget>
class EditFields : public TextFields<Widget> {};
using Editable = testing::Types<WLineEditZeq, WTextAreaZeq, WLineEditUInt32Zeq>;
TYPED_TEST_SUITE(EditFields, Editable);

TYPED_TEST(EditFields, AnEditIsKeptUntilForcedAndWrittenToEveryRecord) {
    TypeParam* field = this->make();
    int changes = 0;
    field->contentChanged().connect([&] { ++changes; });
    field->readFromDatabase({1, 3}, this->errors, false);
    EXPECT_EQ(this->paramsOf(*field), "{}");
    this->store.forget();
    EXPECT_EQ(field->writeToDatabase({1, 3}, this->errors), 0U);
    EXPECT_TRUE(this->store.requests().empty()) << "untouched: the records keep their own";

    this->type(*field, "42");
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(field->hasChangedContent());
    field->blurred().emit();
    EXPECT_EQ(changes, 1) << "reported once";
    EXPECT_EQ(field->readFromDatabase({1, 3}, this->errors, false), 0U);
    field->getZeqParam(this->table({1}).get(), {1}, false);
    EXPECT_EQ(this->shown(field), "42");
    EXPECT_TRUE(this->store.requests().empty());

    const std::string stored = kNumber<TypeParam> ? "42" : "\"42\"";
    const char* key = kNumber<TypeParam> ? "n" : "t";
    EXPECT_EQ(this->paramsOf(*field), "{\"" + std::string(key) + "\":" + stored + "}");
    EXPECT_TRUE(field->hasChangedContent()) << "the owner clears the mark";
    EXPECT_EQ(field->writeToDatabase({}, this->errors), 0U);
    EXPECT_EQ(field->writeToDatabase({1, 3}, this->errors), 0U);
    EXPECT_EQ(this->store.field("r", 1, key), stored);
    EXPECT_EQ(this->store.field("r", 3, key), stored);
    EXPECT_FALSE(field->hasChangedContent());

    this->type(*field, "43");
    EXPECT_EQ(field->readFromDatabase({1}, this->errors, true), 0U);
    EXPECT_EQ(this->shown(field), "42");
    EXPECT_FALSE(field->hasChangedContent());
}

TYPED_TEST(EditFields, AFailedWriteStopsThereAndClearsTheMark) {
    TypeParam* field = this->make();
    this->type(*field, "42");
    this->store.forget();
    EXPECT_EQ(field->writeToDatabase({1, 5, 3}, this->errors), 1U);
    EXPECT_EQ(this->store.requests().size(), 2U);
    EXPECT_FALSE(field->hasChangedContent());
}

TYPED_TEST(EditFields, AFieldInUseIsLeftAlone) {
    TypeParam* field = this->make();
    field->readFromDatabase({1}, this->errors, false);
    field->setFocus();
    EXPECT_EQ(field->readFromDatabase({3}, this->errors, true), 0U);
    EXPECT_EQ(this->shown(field), this->a());
    EXPECT_FALSE(field->hasChangedContent());
    field->setFocus(false);
    field->readFromDatabase({3}, this->errors, false);
    EXPECT_EQ(this->shown(field), this->b());
}

TYPED_TEST(EditFields, AnEditNotYetReportedIsNotOverwritten) {
    TypeParam* field = this->make();
    field->readFromDatabase({1}, this->errors, false);
    this->typeOnly(*field, "typed");
    field->readFromDatabase({3}, this->errors, true);
    EXPECT_EQ(this->shown(field), "typed");
    field->blurred().emit();
    EXPECT_TRUE(field->hasChangedContent());
}

class Texts : public WidgetTest {};

TEST_F(Texts, NumbersAreWrittenAsTheTextBegins) {
    WLineEditUInt32Zeq field("r", "n", true, page());
    const struct {
        const char* typed;
        const char* params;
    } rows[] = {{"007", R"({"n":7})"},
                {" 5", R"({"n":5})"},
                {"12x", R"({"n":12})"},
                {"", R"({"n":0})"},
                {"4294967295", R"({"n":4294967295})"}};
    for (const auto& r : rows) {
        field.setContentChanged();
        typeOnly(field, r.typed);
        EXPECT_EQ(paramsOf(field), r.params) << r.typed;
    }
}

TEST_F(Texts, ScaledNumbersShowOneDecimalAndKeepTheirValue) {
    WUInt32Zeq clock("r", "n", true, page());
    clock.setDisplayScaling(0.001);
    store.put("r", 6, R"("n":148500)");
    clock.readFromDatabase({6}, errors, false);
    EXPECT_EQ(clock.text().toUTF8(), "148.5");
    EXPECT_EQ(clock.getValue(), 148500U);
    clock.setValue(67);
    EXPECT_EQ(clock.text().toUTF8(), "67");
}

TEST_F(Texts, EveryAddressLinksInBrackets) {
    WAnchorZeq anchor("r", "t", true, page());
    store.put("r", 6, R"("t":"10.0.0.1")");
    anchor.readFromDatabase({6}, errors, false);
    EXPECT_EQ(anchor.link().url(), "https://[10.0.0.1]");
    EXPECT_EQ(anchor.target(), Wt::TargetNewWindow);
    anchor.readFromDatabase({1, 3}, errors, false);
    EXPECT_EQ(anchor.link().url(), "https://[]");
    EXPECT_EQ(anchor.text().toUTF8(), "");
}

TEST_F(Texts, WhatComesFromTheDatabaseIsNeverMarkup) {
    const char* hostile = R"("t":"<b onclick='x()'>&amp;</b>")";
    store.put("r", 6, hostile);
    WTextZeq text("r", "t", true, page());
    WAnchorZeq anchor("r", "t", true, page());
    text.readFromDatabase({6}, errors, false);
    anchor.readFromDatabase({6}, errors, false);
    EXPECT_EQ(text.textFormat(), Wt::PlainText);
    EXPECT_EQ(anchor.textFormat(), Wt::PlainText);
    EXPECT_EQ(text.text().toUTF8(), "<b onclick='x()'>&amp;</b>");
}

TEST_F(Texts, ATextAreaTellsTheBrowserItsLimit) {
    WTextAreaZeq area("r", "t", true, page());
    area.setMaxLength(64);
    EXPECT_EQ(area.attributeValue("maxlength").toUTF8(), "64");
}

} // namespace
