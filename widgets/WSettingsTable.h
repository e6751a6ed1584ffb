#pragma once

#include "widgets/SettingsRow.h"

#include <Wt/WTable>

#include <span>

/// A table of labelled widgets, made from rows: it reads, merges, judges and stores them and clears their
/// marks. The named tables hold the rows and what truly differs.
class WSettingsTable : public Wt::WTable {
public:
    using Indexes = std::vector<unsigned>;
    using Errors = std::vector<std::string>;

    /// Spec and rows are constants, not owned.
    WSettingsTable(const SettingsTableSpec& spec, std::span<const SettingsRow> rows,
                   Wt::WContainerWidget* parent = nullptr);

    /// In row order, each with its own exchange; with one exchange for all when the table has a path, and for
    /// several records where that shows the same (see ReadTogether.h). Failures are silent: a widget then
    /// keeps what it shows.
    virtual void readFromDatabase(const Indexes& indexes, bool force);
    /// Stores what was changed and clears the marks. 0 at once when nothing was changed or no record is
    /// chosen.
    virtual unsigned writeToDatabase(const Indexes& indexes, Errors& errors);
    /// Connected to every widget: notes the change and passes it on.
    virtual void contentChangedHandler();

    /// Every validated widget is valid; at least one is. A table without any is valid.
    virtual bool isAllValid();
    virtual bool isAnyValid();
    bool anyWidgetHasFocus() const;
    bool tableChanged() const { return mTableChanged; }
    /// A row's widget, whose class the caller knows (0 otherwise). Rows are counted from 0 below the heading.
    template <class Widget>
    Widget* widget(std::size_t row) const {
        return dynamic_cast<Widget*>(mFields[row].widget);
    }
    void setRowEnabled(std::size_t row, bool enabled);

    Wt::Signal<>& contentChanged() { return mContentChangedSignal; }

protected:
    /// Fills all bound widgets from a response already held (see WWidgetZeq::getZeqParam).
    void getZeqParams(const json_t* table, const Indexes& indexes, bool force);
    const SettingsField& field(std::size_t row) const { return mFields[row]; }

private:
    void addHeadings();
    void addRow(const SettingsRow& row);
    void limit(const SettingsRow& row, SettingsField& made);
    void readNested(const Indexes& indexes, bool force);
    unsigned writeRecords(const Indexes& indexes, Errors& errors);
    unsigned writeFields(const Indexes& indexes, Errors& errors);
    void clearMarks();

    const SettingsTableSpec& mSpec;
    std::vector<SettingsField> mFields; // owned by their cells; one for each row
    Wt::Signal<> mContentChangedSignal;
    bool mTableChanged = false;
};
