#pragma once

#include <Wt/Test/WTestEnvironment>
#include <Wt/WDialog>

#include <functional>

/// Plays the user of the dialogs that are run with exec() while this lives.
struct Answering {
    std::function<void(Wt::WDialog&)> answer;

    Answering(Wt::Test::WTestEnvironment& environment, std::function<void(Wt::WDialog&)> what)
        : answer(std::move(what)) {
        connection = environment.dialogExecuted().connect(
            boost::function<void(Wt::WDialog*)>([this](Wt::WDialog* dialog) { answer(*dialog); }));
    }
    ~Answering() { connection.disconnect(); }

    Wt::Signals::connection connection;
};
