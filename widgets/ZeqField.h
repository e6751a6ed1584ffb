#pragma once

#include "widgets/WWidgetZeq.h"

/// The reading rules that all fields of one text (Value std::string) or one number (unsigned)
/// share. A class says only how it shows a value and what it shows when there is none: no record
/// chosen, or records that differ.
template <class Value>
class ZeqField : public WWidgetZeq {
public:
    /// What a failed read leaves in the field.
    enum class FailedRead { KeepsText, ShowsNothing };

    ZeqField(const char* resource, const char* key, bool indexed,
             FailedRead failedRead = FailedRead::KeepsText)
        : WWidgetZeq(resource, key, indexed), mFailedRead(failedRead) {}

    unsigned readFromDatabase(const Indexes& indexes, Errors& errors, bool force) override;
    void getZeqParam(const json_t* table, const Indexes& indexes, bool force) override;

protected:
    virtual void showValue(const Value& value) = 0;
    virtual void showNothing() = 0;
    /// The records differ.
    virtual void showDifferent() { showNothing(); }

private:
    FailedRead mFailedRead;
};

/// The writing rules. A class says only what the user entered.
template <class Value>
class ZeqEditField : public ZeqField<Value> {
public:
    using typename WWidgetZeq::Errors;
    using typename WWidgetZeq::Indexes;
    using ZeqField<Value>::ZeqField;

    /// The same value goes to every record, up to the first failure. The mark is cleared in every case.
    unsigned writeToDatabase(const Indexes& indexes, Errors& errors) override;
    void setZeqParam(json_t* params) override;

protected:
    virtual Value enteredValue() const = 0;
};
