#pragma once

#include "widgets/ZeqRecordBox.h"

#include <map>

/// A user, among all users by name in natural order. The field holds the user's record index.
class WUsr : public ZeqRecordBox<unsigned> {
public:
    WUsr(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr);

    unsigned updateListOfChoices() override;
    /// Up to the first failure. The blank item is not written to records.
    unsigned writeToDatabase(const Indexes& indexes, Errors& errors) override;
    void setZeqParam(json_t* params) override;

protected:
    int itemOf(const unsigned& userIndex) const override;

private:
    unsigned chosenUser(unsigned& userIndex, Errors& errors) const;

    std::map<unsigned, std::string> mNames; // by record index
};
