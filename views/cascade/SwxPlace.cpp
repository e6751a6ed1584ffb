#include "views/cascade/SwxPlace.h"

#include "db/Db.h"

SwxPlace SwxPlace::read() {
    return {.master = Db::db.thisSwxIsMaster(),
            .controller = Db::db.thisSwxIsCascadeController(),
            .backup = Db::db.thisSwxIsBackupCascadeController()};
}
