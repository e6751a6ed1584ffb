#include "shell/RepeatedTimer.h"

#include <Wt/WIOService>
#include <Wt/WServer>

#include <boost/bind/bind.hpp>

void repeatedTimer(int milliseconds, boost::function<void()> job, bool runJob) {
    Wt::WServer::instance()->ioService().schedule(milliseconds,
                                                  boost::bind(&repeatedTimer, milliseconds, job, true));
    if (runJob) job();
}
