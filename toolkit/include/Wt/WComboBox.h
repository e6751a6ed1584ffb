#pragma once

#include <Wt/WFormWidget.h>

namespace Wt {

class WAbstractItemModel;

/// A choice of one item. The first item added to an empty box becomes the current one.
class WComboBox : public WFormWidget {
public:
    explicit WComboBox(WContainerWidget* parent = nullptr);
    ~WComboBox() override;

    void addItem(const WString& text);
    void insertItem(int index, const WString& text);
    void removeItem(int index);
    void setItemText(int index, const WString& text);
    void clear();
    /// -1: none. Out of range is ignored.
    void setCurrentIndex(int index);
    void setNoSelectionEnabled(bool enabled);
    /// Not owned. Until then the box keeps the texts itself, and model() is null.
    void setModel(WAbstractItemModel* model);
    void setModelColumn(int index);
    void refresh() override;

    int count() const;
    int currentIndex() const { return mCurrent; }
    const WString currentText() const;
    const WString itemText(int index) const;
    int findText(const WString& text) const;
    WAbstractItemModel* model() const { return mModel; }
    int modelColumn() const { return mModelColumn; }

    WString valueText() const override { return currentText(); }
    void setValueText(const WString& value) override;

    /// The user chose: the index, and the text.
    Signal<int>& activated() { return mActivated; }
    Signal<WString>& sactivated() { return mTextActivated; }

    void browserEvent(std::string_view kind, const boost::json::object& event) override;
    void browserValue(const boost::json::value& value) override;

protected:
    const char* tag() const override { return "select"; }
    void describe(Impl::ElementSpec& spec) override;

private:
    void followModel();
    void leaveModel();
    void itemsChanged();
    WString textAt(int index) const;

    // A box without a model keeps its texts itself.
    std::vector<WString> mTexts;
    WAbstractItemModel* mModel = nullptr; // not owned
    std::vector<Signals::connection> mModelConnections;
    int mModelColumn = 0;
    int mCurrent = -1;
    bool mNoSelection = false;
    Signal<int> mActivated{this};
    Signal<WString> mTextActivated{this};
};

} // namespace Wt
