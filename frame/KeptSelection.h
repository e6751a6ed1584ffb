#pragma once

#include "frame/NamesText.h"

#include <Wt/WSignal>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

class ObjListParts;

/// The selection of a list: kept by record while the list is rebuilt, and told of only when the user changes it.
class KeptSelection {
public:
    using Job = std::function<void()>;

    /// `rebuild` fills the list anew, `changed` is called when the user has selected something else. The list lives
    /// as long as this.
    KeptSelection(ObjListParts& list, Job rebuild, Job changed);
    ~KeptSelection() { mConnection.disconnect(); }
    KeptSelection(const KeptSelection&) = delete;
    KeptSelection& operator=(const KeptSelection&) = delete;

    /// For a list whose record indexes are not unique: called before a rebuild, gives what puts the
    /// selection back behind it.
    void setRemember(std::function<Job()> remember) { mRemember = std::move(remember); }

    /// Records that are gone are no longer selected. A selected row that was in view stays in view, also when its
    /// new name moves it.
    void rebuild();
    void clear();
    /// Scrolls to the selected row if it is the only one and out of view.
    void bringIntoView();

    /// What is selected, as a part of the address: each record by what the list tells it by; "" for nothing. Of more
    /// records than an address takes it tells the number.
    std::string inAddress() const;
    /// Selects the records of such a part that the list shows, and tells of it. A number leaves the selection.
    void selectInAddress(std::string_view part);

    /// Record indexes in the selection's order.
    std::vector<unsigned> indexes() const;
    /// A cell of the first selected row, UTF-8; empty without one.
    std::string textOfFirst(int column) const;
    std::size_t count() const;
    /// The selected records in words, by these columns; state column 0 = none.
    std::vector<HitRecord> hits(int nameColumn, int stateColumn) const;

private:
    /// Does the job without telling of the selection.
    void quietly(const Job& job);
    void listen();

    ObjListParts& mList;
    Job mRebuild;
    Job mChanged;
    std::function<Job()> mRemember;
    Wt::Signals::connection mConnection;
};
