// From JSON to fields, by the catalogue.
#pragma once

#include "platform/service/core/Errors.h"
#include "platform/service/record/Record.h"

#include <jansson.h>

namespace zeqd {

/// Foreign text for a detail: cut, and without surprises.
std::string quoted(std::string_view text);

enum class Writing {
    Set,    ///< a client changes a record
    Create, ///< a client makes a record, or gives the parameters of an action
    Load,   ///< the service reads what it wrote itself, or its data files: every key may be given
};

class FieldReader {
public:
    FieldReader(Writing writing, Errors& errors) : mWriting(writing), mErrors(errors) {}

    /// Merges the object's keys into the fields; "index" is skipped. Each fault adds an error with the key as
    /// its detail, and leaves that key as it was. `path` goes before the key in details.
    void merge(const json_t* object, std::span<const KeyRow> rows, Fields& fields,
               const std::string& path = {});

    /// Adds an error for each required key that the object lacks.
    void require(const json_t* object, std::span<const KeyRow> rows);

private:
    bool mayWrite(const KeyRow& row, const std::string& name);
    void read(const json_t* json, const KeyRow& row, Value& value, const std::string& name);
    void readText(const json_t* json, const KeyRow& row, Value& value, const std::string& name);
    void readNumber(const json_t* json, const KeyRow& row, Value& value, const std::string& name);
    void readChoice(const json_t* json, const KeyRow& row, Value& value, const std::string& name);
    void readBinary(const json_t* json, const KeyRow& row, Value& value, const std::string& name);
    void readList(const json_t* json, const KeyRow& row, Value& value, const std::string& name);
    void fail(Errno number, const std::string& detail) { addError(mErrors, number, detail); }

    Writing mWriting;
    Errors& mErrors;
};

} // namespace zeqd
