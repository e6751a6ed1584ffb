#pragma once

#include <Wt/WText>

/// Whether the connections between this Switch and one of its managers are up, read only.
class WMgrCommStatus : public Wt::WText {
public:
    enum class MgrInstance { Primary, Auxiliary };

    explicit WMgrCommStatus(MgrInstance instance, Wt::WContainerWidget* parent = nullptr);

    /// A Switch that is not managed is down, without a further read.
    void readFromDatabase();

private:
    MgrInstance mInstance;
};
