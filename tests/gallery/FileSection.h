#pragma once

#include <Wt/WContainerWidget>
#include <Wt/WFileUpload>
#include <Wt/WText>

/// A file to send, and one to fetch.
class FileSection : public Wt::WContainerWidget {
public:
    explicit FileSection(Wt::WContainerWidget* parent);

private:
    void offerUpload();
    void arrived();

    Wt::WContainerWidget* mPlace; // of the field, which is made anew after a cancellation
    Wt::WFileUpload* mUpload = nullptr;
    Wt::WText* mSaid;
};
