#include "db/DeviceState.h"

std::optional<RxState> readRxState(unsigned index, Db::Errors& errors) {
    RxState state;
    if (Db::db.getRxStatus(index, state.status, state.upgrade, state.usage, state.loggedIn, errors) != 0)
        return std::nullopt;
    return state;
}

std::optional<TxState> readTxState(unsigned index, Db::Errors& errors) {
    TxState state;
    if (Db::db.getTxStatus(index, state.status, state.upgrade, state.usage, state.connected, state.mode,
                           errors) != 0)
        return std::nullopt;
    return state;
}

std::optional<SwxState> readSwxState(unsigned index, Db::Errors& errors) {
    SwxState state;
    if (Db::db.getSwxStatus(index, state.status, state.upgrade, state.usage, errors) != 0)
        return std::nullopt;
    return state;
}

std::optional<RxState> readRxState(unsigned index) {
    Db::Errors dropped;
    return readRxState(index, dropped);
}

std::optional<TxState> readTxState(unsigned index) {
    Db::Errors dropped;
    return readTxState(index, dropped);
}

std::optional<SwxState> readSwxState(unsigned index) {
    Db::Errors dropped;
    return readSwxState(index, dropped);
}
