#pragma once

#include "tests/db/DbTest.h"

#include "db/ZeqPtr.h"
#include "widgets/WWidgetZeq.h"

#include <Wt/WApplication>
#include <Wt/WCheckBox>
#include <Wt/WComboBox>
#include <Wt/WContainerWidget>
#include <Wt/WLineEdit>
#include <Wt/WTextArea>

/// Bound widgets in a session, on records that the test makes up: "r" 1 and 2 agree, 3 differs, 4 lacks the
/// keys, 5 is refused; "g" is a singleton.
class WidgetTest : public DbTest {
protected:
    WidgetTest() {
        store.put("r", 1, R"("t":"A","n":7,"c":"two","b":true,"e":"enabled")");
        store.put("r", 2, R"("t":"A","n":7,"c":"two","b":true,"e":"enabled")");
        store.put("r", 3, R"("t":"B","n":8,"c":"one","b":false,"e":"disabled")");
        store.put("r", 4, "");
        store.put("r", 5, R"("t":"A","n":7,"c":"two","b":true,"e":"enabled")");
        store.refuse("get", "r", 5);
        store.refuse("set", "r", 5);
        store.put("g", 0, R"("t":"S","n":9,"c":"one","b":true,"e":"enabled")");
    }

    Wt::WContainerWidget* page() { return session.app().root(); }

    /// The browser has a new text that is not reported yet.
    static void typeOnly(Wt::WLineEdit& field, const char* text) { field.Wt::WLineEdit::setText(text); }
    static void typeOnly(Wt::WTextArea& field, const char* text) { field.Wt::WTextArea::setText(text); }
    /// The user types, and leaves the field.
    template <class Field>
    static void type(Field& field, const char* text) {
        typeOnly(field, text);
        field.blurred().emit();
    }
    /// The user chooses.
    static void choose(Wt::WComboBox& box, int item) {
        box.setCurrentIndex(item);
        box.changed().emit();
    }

    /// A held response with these records of "r", in this order.
    ZeqPtr table(const WWidgetZeq::Indexes& indexes) {
        std::string rows;
        for (const unsigned index : indexes) {
            std::string row = "\"index\":" + std::to_string(index);
            for (const char* key : {"t", "n", "c", "b", "e"})
                if (const std::string value = store.field("r", index, key); !value.empty())
                    row += ",\"" + std::string(key) + "\":" + value;
            rows += (rows.empty() ? "{" : ",{") + row + "}";
        }
        return ZeqPtr(json_loads(("{\"rows\":[" + rows + "]}").c_str(), 0, nullptr));
    }

    /// What a widget adds to a request, as JSON text.
    static std::string paramsOf(WWidgetZeq& widget) {
        const ZeqPtr params(ZeqObj_new());
        widget.setZeqParam(params.get());
        char* text = json_dumps(params.get(), JSON_COMPACT | JSON_SORT_KEYS);
        const std::string result = text;
        free(text);
        return result;
    }
};
