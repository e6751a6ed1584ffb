#pragma once

#include "frame/WCollapsingObjListContextPanel.h"

/// What nobody has acknowledged yet, newest on top until the user sorts it otherwise.
class WDashViewEventList : public WCollapsingObjListContextPanel {
public:
    enum Column { InstanceId, Date, Type, Originator, Message };
    static constexpr int kColumnCount = 5;

    WDashViewEventList(const Wt::WString& title, HeightType heightType, int height,
                       Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase() override;
    virtual void eventLogClear();
};
