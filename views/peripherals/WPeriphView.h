#pragma once

#include "frame/ListPage.h"

class WPeriphViewMonAttribs;
class WPeriphViewMonDecode;
class WPeriphViewMonList;

enum class MonitorAction { Delete, Push, Pull };
enum class MonitorTab { Attributes, Decode };

/// The Peripherals tab: the library of stored monitors. They are pulled from devices, pushed to Transmitters, renamed
/// and deleted; the pane below the list shows what is selected, and its decoded EDID. A protected record can be
/// pushed, but neither edited nor deleted.
class WPeriphView : public ListPage {
public:
    explicit WPeriphView(Wt::WContainerWidget* parent = nullptr);

    virtual void deleteMonsActionButtonClickedHandler();
    virtual void pushMonsActionButtonClickedHandler();
    virtual void pullMonsActionButtonClickedHandler();
    virtual void monListSelectionChangedHandler();
    virtual void monSaveButtonClickedHandler();
    virtual void monCancelButtonClickedHandler();
    virtual void detailsTabChangedHandler();

    WPeriphViewMonList* list() const { return mList; }
    DetailsTabs* details() const { return mDetails; }

protected:
    void showSelection(bool forceDetails) override;
    bool listIsDue() const override;

private:
    WPeriphViewMonAttribs& attribs() const;
    /// Text in the decode tab is selected: it is left alone, so that it can be copied.
    bool decodeIsInUse() const;

    WPeriphViewMonList* mList;
    DetailsTabs* mDetails;
};
