#pragma once

#include <Wt/WDialog>

#include <string>
#include <vector>

/// Shows what the database service refused. Run with exec().
class WMsgBoxDbErr : public Wt::WDialog {
public:
    /// The kind of operation that failed: the box's first line.
    enum AccessType { Read, Write, Create, Delete, Operation };

    /// errors: texts in the user's words; may be empty. Numbers above Operation read as Operation.
    WMsgBoxDbErr(AccessType type, const std::vector<std::string>& errors);
    ~WMsgBoxDbErr() override;

    virtual void buttonClickedHandler();
};
