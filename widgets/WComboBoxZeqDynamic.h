#pragma once

#include "widgets/ZeqRecordBox.h"

/// A choice among the texts that the records of another resource hold under a key.
class WComboBoxZeqDynamic : public ZeqTextRecordBox {
public:
    /// List resource and list key are constants, not owned.
    WComboBoxZeqDynamic(const char* resource, const char* key, const char* listResource, const char* listKey,
                        bool indexed, Wt::WContainerWidget* parent = nullptr);

    unsigned updateListOfChoices() override;

private:
    const char* mListResource;
    const char* mListKey;
};
