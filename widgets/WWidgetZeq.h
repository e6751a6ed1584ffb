#pragma once

#include "platform/client/ZeqTypes.h"

#include <Wt/WSignal>

#include <string>
#include <vector>

/// Contract of a widget that is bound to one field of the database. It fills itself from the database or from
/// a response already held, remembers whether the user changed it, and writes itself back or adds itself to a
/// request. Over several records it shows the common value, or a blank where they differ, and writes only
/// what was changed.
///
/// 1. Results are 0 for success and 1 for failure; `errors` receives what the service refused (see Db).
/// 2. `force` true: overwrite the widget even if the user has changed it.
/// 3. A bound widget with indexed() false shows a singleton; the index list then says
/// nothing about what is read.
class WWidgetZeq {
public:
    using Indexes = std::vector<unsigned>;
    using Errors = std::vector<std::string>;

    /// Resource path and key are constants, not owned.
    WWidgetZeq(const char* resource, const char* key, bool indexed)
        : mResource(resource), mKey(key), mIndexed(indexed) {}
    WWidgetZeq(const WWidgetZeq&) = delete;
    WWidgetZeq& operator=(const WWidgetZeq&) = delete;
    virtual ~WWidgetZeq() = default;

    /// With exchanges of its own.
    virtual unsigned readFromDatabase(const Indexes& indexes, Errors& errors, bool force) = 0;
    /// Writes to every record if the user changed it. A read-only widget answers 1.
    virtual unsigned writeToDatabase(const Indexes& indexes, Errors& errors);
    /// Adds the field to a request's "params" if the user changed it. Leaves the mark: the owner clears it.
    virtual void setZeqParam(json_t* params);
    /// From a table that has one row for each index, found by its "index"; with one index,
    /// from that one record.
    virtual void getZeqParam(const json_t* table, const Indexes& indexes, bool force) = 0;

    virtual bool hasChangedContent() { return mContentChanged; }
    virtual void clearContentChanged() { mContentChanged = false; }
    virtual void setContentChanged() { mContentChanged = true; }

    /// Raised on every change that the user makes.
    Wt::Signal<>& contentChanged() { return mContentChangedSignal; }
    void signalAContentChange() { mContentChangedSignal.emit(); }

    const char* resource() const { return mResource; }
    const char* key() const { return mKey; }
    bool indexed() const { return mIndexed; }

protected:
    /// The user changed it and nobody insists on a new value.
    bool keepsEdit(bool force) const { return mContentChanged && !force; }
    /// Bound to records, of which none is chosen.
    bool hasNoRecord(const Indexes& indexes) const { return mIndexed && indexes.empty(); }
    /// The records to read or write: the chosen ones, or the singleton.
    Indexes records(const Indexes& indexes) const { return mIndexed ? indexes : Indexes{0}; }
    /// Sets the mark and raises the signal.
    void markEdited();

private:
    Wt::Signal<> mContentChangedSignal;
    const char* mResource;
    const char* mKey;
    bool mIndexed;
    bool mContentChanged = false;
};
