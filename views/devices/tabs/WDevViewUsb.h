#pragma once

#include "frame/ShownTables.h"
#include "views/devices/tabs/UsbDiagTable.h"

/// Receiver's side of its USB transport. Empty while the Receiver is not ready.
class WDevViewRxUsbRxTable : public UsbDiagTable {
public:
    explicit WDevViewRxUsbRxTable(Wt::WContainerWidget* parent = nullptr);
};

/// Transmitter's side: of the Transmitter that the selected Receiver is connected to.
class WDevViewRxUsbTxTable : public UsbDiagTable {
public:
    explicit WDevViewRxUsbTxTable(Wt::WContainerWidget* parent = nullptr);
};

/// Transmitter's side, of the selected Transmitter. Empty while it is not ready.
class WDevViewTxUsbTable : public UsbDiagTable {
public:
    explicit WDevViewTxUsbTable(Wt::WContainerWidget* parent = nullptr);
};

class WDevViewRxUsb : public ShownTables {
public:
    explicit WDevViewRxUsb(Wt::WContainerWidget* parent = nullptr);
};

class WDevViewTxUsb : public ShownTable<WDevViewTxUsbTable> {
public:
    using ShownTable::ShownTable;
};
