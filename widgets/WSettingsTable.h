#pragma once

#include "widgets/SettingsPlace.h"
#include "widgets/SettingsRow.h"

#include <Wt/WTable>

#include <string>
#include <vector>

#include <span>

/// A table of labelled widgets, made from rows: it reads, merges, judges and stores them and clears their
/// marks. The named tables hold the rows and what truly differs.
///
/// A mark never outlives the record that it was made for: reading other records than last time, forced reads,
/// and saving clear all marks, whatever becomes of them.
class WSettingsTable : public Wt::WTable {
public:
    using Indexes = std::vector<unsigned>;
    using Errors = std::vector<std::string>;

    /// Spec and rows are constants, not owned. Throws std::logic_error when a row follows one that the
    /// table does not have.
    WSettingsTable(const SettingsTableSpec& spec, std::span<const SettingsRow> rows,
                   Wt::WContainerWidget* parent = nullptr);

    /// With one request for each resource and group of records. Failures are silent: a widget then keeps
    /// what it shows.
    virtual void readFromDatabase(const Indexes& indexes, bool force);
    /// Stores what was changed, is enabled and valid, and clears the marks. An emptied number of several
    /// records counts as not changed. 1 when something was refused or not answered.
    virtual unsigned writeToDatabase(const Indexes& indexes, Errors& errors);
    /// Connected to every field: notes the change, has the rows follow that depend on it, and passes it on.
    virtual void contentChangedHandler();
    /// Tells below each edited field what is stored now: when it is not what was stored as the user began, or in any
    /// case. Reads, and leaves all fields as they are.
    enum class Tell { WhatChanged, Everything };
    void compareWithStored(const Indexes& indexes, Tell tell);
    /// Drops the marks of unsaved edits if these are other records than those read last.
    void keepMarksOf(const Indexes& indexes);

    /// Every field that is asked is valid; at least one is. A table without any is valid. A disabled field,
    /// or one whose choice is not made, is not asked.
    virtual bool isAllValid();
    virtual bool isAnyValid();
    bool anyWidgetHasFocus() const;
    bool tableChanged() const { return mTableChanged; }
    /// The widget of the first row with that key, whose class the caller knows (0 otherwise). Columns are
    /// counted from 0 behind the label.
    template <class Widget>
    Widget* widget(const char* key, std::size_t column = 0) const {
        return widgetAt<Widget>(rowOf(key), column);
    }
    /// The same by the number of the row, from 0 below the heading.
    template <class Widget>
    Widget* widgetAt(std::size_t row, std::size_t column = 0) const {
        const std::size_t place = row * mColumns + column;
        return place < mFields.size() ? dynamic_cast<Widget*>(mFields[place].made.widget) : nullptr;
    }
    /// For the table's class or its page, beyond what the rows say. A read does what the rows say again.
    void setRowEnabled(const char* key, bool enabled);
    /// Empties all texts that are only shown.
    void clearValues();

    /// Has all rows follow the choices that they depend on.
    void followChoices() { followChoices(false); }

    Wt::Signal<>& contentChanged() { return mContentChangedSignal; }
    /// Enter in a field of one line, behind the report of what was typed there.
    Wt::Signal<>& enterPressed() { return mEnterPressedSignal; }

protected:
    /// The records that the rows of a group show, when these are chosen.
    virtual Indexes recordsOf(unsigned group, const Indexes& chosen);
    /// What nested objects hold could not be read. Leaves the fields alone.
    virtual void nestedReadFailed() {}

private:
    struct Field {
        SettingsField made;
        const SettingsRow* row;
        SettingsPlace place;
        bool singleton;
        bool editable = true;              // as far as the records decide that were read last
        std::vector<std::string> stored{}; // when it was read, record by record
        Wt::WString remark{};              // on what is stored
        Wt::WText* note = nullptr;         // owned by the cell; made when there is something to say
    };
    /// Fields that are read and saved with the same requests.
    struct Share {
        std::string resource;
        bool singleton;
        unsigned group;

        bool operator==(const Share&) const = default;
    };
    static Share shareOf(const Field& field) {
        return {field.place.resource, field.singleton, field.row->group};
    }

    // WSettingsTable.cpp
    std::size_t rowOf(const char* key) const;
    void addHeadings();
    void addRow(const SettingsRow& row);
    void addField(const SettingsRow& row, std::size_t column, int place, const Wt::WText* label);
    void limit(const SettingsRow& row, SettingsField& made);
    void listen(const SettingsField& made);
    void enterHandler() { mEnterPressedSignal.emit(); }

    // SettingsNotes.cpp
    static std::vector<std::string> storedOf(const Field& field, const json_t* answer);
    Wt::WString errorOf(const Field& field) const;
    void noteFields();

    // SettingsReading.cpp, SettingsWriting.cpp
    std::vector<Share> shares() const;
    Indexes recordsOf(const Share& share, const Indexes& chosen);
    bool isRead(const Field& field) const;
    const json_t* fetchShare(const Share& share, const Indexes& records) const;
    void readShare(const Share& share, const Indexes& indexes, bool force);
    bool isWritten(const Field& field, bool several) const;
    unsigned writeShare(const Share& share, const Indexes& indexes, Errors& errors);
    unsigned writeFields(const Indexes& indexes, Errors& errors);
    void clearMarks();
    std::vector<Field*> marked();

    // SettingsRules.cpp
    const Field* findField(const char* key, const Field& from) const;
    bool isMade(const SettingsChoice& choice, const Field& from) const;
    bool isAsked(const Field& field) const;
    bool isValid(const Field& field) const;
    bool isRepeated(const Field& field) const;
    void lock(const Indexes& indexes);
    void follow(Field& field, bool atRead);
    void followChoices(bool atRead);

    const SettingsTableSpec& mSpec;
    std::size_t mColumns;       // fields of each row
    std::vector<Field> mFields; // owned by their cells; row by row
    Indexes mShown;             // read last
    Wt::Signal<> mContentChangedSignal;
    Wt::Signal<> mEnterPressedSignal;
    bool mTableChanged = false;
};
