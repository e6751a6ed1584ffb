#pragma once

#include <boost/function.hpp>

/// Runs the job every so many milliseconds on the server's I/O service, outside of any session,
/// from now on and as long as the server runs. runJob: also at once.
/// The next pass is queued before the job runs, so that a slow or failing job cannot stop the rhythm.
/// An empty job throws boost::bad_function_call when it is its turn.
void repeatedTimer(int milliseconds, boost::function<void()> job, bool runJob);
