#pragma once

#include <Wt/Impl/RenderNode.h>
#include <Wt/WLength.h>
#include <Wt/WObject.h>

#include <memory>

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
    WLength height() const;
    const std::string& styleClass() const;
    bool isHidden() const { return mHidden; }
    const std::string id() const override;

private:
    friend class WTable;
    friend class WTableCell;

    WTableRow(WTable* table, int row);

    void describe(Impl::ElementSpec& spec) override;
    void childNodes(std::vector<Impl::RenderNode*>& children) override;
    bool nodeHidden() const override { return mHidden; }

    struct Look; // height, style class, id: made on first use
    Look& look();
    const Look& seenLook() const;

    WTable* mTable;
    std::vector<WTableCell*> mCells; // owned
    std::unique_ptr<Look> mLook;
    int mRow;
    bool mHidden = false;
};

} // namespace Wt
