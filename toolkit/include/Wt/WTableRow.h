#pragma once

#include <Wt/Impl/RenderNode.h>
#include <Wt/WLength.h>
#include <Wt/WObject.h>

namespace Wt {

class WTable;
class WTableCell;

/// A row of a WTable.
class WTableRow : public WObject, public Impl::RenderNode {
public:
    ~WTableRow() override;

    WTableCell* elementAt(int column);
    virtual void setHeight(const WLength& height);
    void setStyleClass(const WString& styleClass);
    void setHidden(bool hidden);
    void hide() { setHidden(true); }
    void show() { setHidden(false); }
    void setId(const std::string& id);

    WTable* table() const { return mTable; }
    int rowNum() const { return mRow; }
    WLength height() const { return mHeight; }
    const std::string& styleClass() const { return mStyleClass; }
    bool isHidden() const { return mHidden; }
    const std::string id() const override;

private:
    friend class WTable;
    friend class WTableCell;

    WTableRow(WTable* table, int row);

    void describe(Impl::ElementSpec& spec) override;
    void childNodes(std::vector<Impl::RenderNode*>& children) override;
    bool nodeHidden() const override { return mHidden; }

    WTable* mTable;
    std::vector<WTableCell*> mCells; // owned
    int mRow;
    bool mHidden = false;
    WLength mHeight;
    std::string mStyleClass, mGivenId;
};

} // namespace Wt
