#pragma once

#include <Wt/WContainerWidget>

namespace Wt {
class WText;
}

class WCascadeViewInfoTable;

/// Who is who in the cascade, below a notice while the roles are switched.
class WCascadeViewInfo : public Wt::WContainerWidget {
public:
    explicit WCascadeViewInfo(Wt::WContainerWidget* parent = nullptr);

    virtual void readFromDatabase(bool force);
    virtual void setDependentWidgets();

    WCascadeViewInfoTable* table() const { return mTable; }
    Wt::WText* notice() const { return mNotice; }

private:
    Wt::WText* mNotice;
    WCascadeViewInfoTable* mTable;
};
