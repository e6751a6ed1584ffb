#include "platform/service/request/ReadRequest.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/record/FieldReader.h"
#include "platform/service/record/RecordJson.h"
#include "platform/service/request/Computed.h"
#include "platform/service/request/Describe.h"

#include <algorithm>

namespace zeqd {

namespace {

/// A key of the select list.
struct Selected {
    std::size_t place;
    std::string label; ///< "key": as every row has it
};

/// One wanted value of a key, from the query.
struct Condition {
    std::size_t place;
    Value value;
};

class Read {
public:
    Read(const View& view, const ZeqRequest& request, std::int64_t now)
        : mView(view), mRequest(request), mNow(now), mRow(*request.resource), mKeys(mRow.keys) {}

    std::string answer() {
        readQuery();
        descend();
        readSelect();
        if (mErrors.empty()) {
            mOut = "{\"id\":";
            appendJsonNumber(mOut, mRequest.id);
            mOut += ",\"rows\":[";
            visitAll();
            mOut += "]}";
            if (mCount == 0 && mErrors.empty()) addError(mErrors, Errno::NoEntries);
            if (overflows()) addError(mErrors, Errno::TooLarge, "the answer; select fewer keys");
        }
        return mErrors.empty() ? std::move(mOut) : errorText(mRequest.id, mErrors);
    }

private:
    bool singleton() const { return mRow.shape == Shape::Singleton || mRow.id == Res::ZeqHello; }

    /// As many as there may be records; those of the diagnostics are the devices'.
    std::size_t maxIndexes() const { return mRow.capacity ? mRow.capacity : resource(Res::Rx).capacity; }
    bool overflows() const { return mOut.size() > kMaxAnswer; }

    void readIndex(const json_t* value) {
        if (!json_is_integer(value) || json_integer_value(value) < 0 ||
            json_integer_value(value) > kAnyNumber)
            return addError(mErrors, Errno::InvalidParameter, "index must be a whole number");
        mIndexes.push_back(static_cast<std::uint32_t>(json_integer_value(value)));
    }

    void readQuery() {
        const char* key;
        json_t* value;
        json_object_foreach(mRequest.query.get(), key, value) {
            if (std::string_view(key) == "index") {
                mByIndex = true;
                if (!json_is_array(value)) {
                    readIndex(value);
                    continue;
                }
                if (json_array_size(value) > maxIndexes()) {
                    addError(mErrors, Errno::TooLarge,
                             "query: at most " + std::to_string(maxIndexes()) + " indexes");
                    continue;
                }
                for (std::size_t i = 0; i < json_array_size(value); ++i) readIndex(json_array_get(value, i));
            } else {
                readCondition(key, value);
            }
        }
    }

    void readCondition(std::string_view key, const json_t* value) {
        const int at = findKey(mRow.keys, key);
        if (mRow.id == Res::ZeqCatalogue && key == "resource") return;
        if (at < 0 || mRow.keys[static_cast<std::size_t>(at)].access == Access::Internal)
            return addError(mErrors, Errno::UnknownParameter, "query: " + quoted(key));
        const KeyRow& row = mRow.keys[static_cast<std::size_t>(at)];
        if (row.secret != Secret::No)
            return addError(mErrors, Errno::NotAllowed, "query: " + std::string(key));
        Condition condition{static_cast<std::size_t>(at), {}};
        const std::string_view text = json_is_string(value) ? json_string_value(value) : "";
        if (row.type == Type::Text && json_is_string(value))
            condition.value = std::string(text);
        else if (row.type == Type::Choice && json_is_string(value))
            condition.value = static_cast<std::int64_t>(findValue(*row.values, text));
        else if (row.type == Type::Number && json_is_integer(value))
            condition.value = static_cast<std::int64_t>(json_integer_value(value));
        else
            return addError(mErrors, Errno::InvalidParameter, "query: " + std::string(key));
        mConditions.push_back(std::move(condition));
    }

    void descend() {
        for (const std::string& name : mRequest.path) {
            mPlaces.push_back(static_cast<std::size_t>(findKey(mKeys, name)));
            mKeys = mKeys[mPlaces.back()].rows();
        }
    }

    void readSelect() {
        for (const std::string& key : mRequest.select) {
            if (key == "index") continue;
            const int at = findKey(mKeys, key);
            if (at < 0 || mKeys[static_cast<std::size_t>(at)].access == Access::Internal)
                addError(mErrors, Errno::UnknownParameter, "select: " + quoted(key));
            else
                select(static_cast<std::size_t>(at));
        }
        // An alert's number comes with every row.
        if (mKeys.data() == resource(Res::HistoricalAlerts).keys.data() && !mRequest.select.empty() &&
            std::none_of(mSelected.begin(), mSelected.end(),
                         [](const Selected& key) { return key.place == 0; }))
            select(0);
    }

    void select(std::size_t place) {
        if (mKeys[place].access == Access::Act) return;
        std::string label;
        appendJsonString(label, mKeys[place].key);
        mSelected.push_back({place, label + ':'});
    }

    void visitAll() {
        if (mRow.id == Res::ZeqCatalogue) return describe();
        if (singleton())
            return visit(mRow.id == Res::ZeqHello ? std::make_shared<Record>(mRow.id, 0U)
                                                  : mView.find(mRow.id, 0));
        if (mRow.shape == Shape::Computed) {
            if (!mByIndex)
                for (std::uint32_t i = 1; i <= computedIndexes(mView, mRow.id); ++i) mIndexes.push_back(i);
            ComputedRecords records(mView);
            eachIndex([&](std::uint32_t index) { return records.record(mRow.id, index); });
        } else if (mByIndex) {
            eachIndex([&](std::uint32_t index) { return mView.find(mRow.id, index); });
        } else {
            mView.each(mRow.id, [this](const RecordPtr& record) {
                visit(record);
                return !overflows();
            });
        }
    }

    template <class Find>
    void eachIndex(Find find) {
        for (const std::uint32_t index : mIndexes) {
            if (overflows()) return;
            visit(find(index));
        }
    }

    void describe() {
        const json_t* name = json_object_get(mRequest.query.get(), "resource");
        const ResourceRow* wanted = json_is_string(name) ? findResource(json_string_value(name)) : nullptr;
        if (name && (!wanted || wanted->methods == 0)) return addError(mErrors, Errno::InvalidResource);
        bool first = true;
        for (const ResourceRow& row : catalogue())
            if (wanted ? wanted == &row : row.methods != 0) first = appendDescription(mOut, row, first);
        mCount = first ? 0 : 1;
    }

    bool matches(const Record& record) const {
        return std::all_of(mConditions.begin(), mConditions.end(), [&](const Condition& condition) {
            return sameValue(record.fields()[condition.place], condition.value);
        });
    }

    void visit(const RecordPtr& stored) {
        if (!stored) return;
        const RecordPtr fresh = upToDate(stored, mNow);
        const Record* record = fresh ? fresh.get() : stored.get();
        if (!matches(*record)) return;
        const Fields* fields = &record->fields();
        for (const std::size_t place : mPlaces) fields = &(*fields)[place].fields();
        if (mCount++) mOut += ',';
        mOut += '{';
        const bool numbered = !singleton();
        if (numbered) {
            mOut += "\"index\":";
            appendJsonNumber(mOut, record->index());
        }
        if (mRequest.select.empty()) {
            appendFields(mOut, mKeys, *fields, Audience::Client, !numbered);
        } else {
            appendSelected(*fields, !numbered);
        }
        mOut += '}';
    }

    void appendSelected(const Fields& fields, bool first) {
        for (const Selected& key : mSelected) {
            if (!fields[key.place].isSet()) continue;
            if (!first) mOut += ',';
            first = false;
            mOut += key.label;
            appendValue(mOut, mKeys[key.place], fields[key.place], Audience::Client);
        }
    }

    const View& mView;
    const ZeqRequest& mRequest;
    std::int64_t mNow;
    const ResourceRow& mRow;
    std::span<const KeyRow> mKeys; ///< of the nested object that is asked for
    std::vector<std::size_t> mPlaces;
    std::vector<Selected> mSelected;
    std::vector<std::uint32_t> mIndexes;
    std::vector<Condition> mConditions;
    bool mByIndex = false;
    std::size_t mCount = 0;
    Errors mErrors;
    std::string mOut;
};

} // namespace

std::string answerRead(const View& view, const ZeqRequest& request, std::int64_t now) {
    return Read(view, request, now).answer();
}

} // namespace zeqd
