#include "widgets/WChangePassword.h"

void WChangePassword::includeBlankItem(bool include) {
    const bool included = count() > choiceCount();
    if (include == included) return;
    if (include)
        addItem(Wt::WString());
    else
        removeItem(choiceCount());
}
