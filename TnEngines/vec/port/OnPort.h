// Private: how a procedure reaches its port.
#pragma once

#include "TnEngines/vec/port/Port.h"
#include "TnEngines/vec/port/PortRegistry.h"

namespace tn::vec {

/// What an operation gives; something else for what is no port, and where there is no memory.
template <class Operation, class Result>
Result OnPort(VecPort handle, Result otherwise, const Operation& operation) noexcept {
    Port* const port = Find(handle);
    if (port == nullptr) {
        return otherwise;
    }
    try {
        return operation(*port);
    } catch (...) {
        port->Errors().RecordCaught();
        return otherwise;
    }
}

template <class Operation> void OnPort(VecPort handle, const Operation& operation) noexcept {
    OnPort(handle, 0, [&](Port& port) {
        operation(port);
        return 0;
    });
}

/// What a painting operation gives: null, or the error that it recorded.
template <class Operation> KelError PaintOnPort(VecPort handle, const Operation& operation) noexcept {
    Port* const port = Find(handle);
    if (port == nullptr) {
        return nullptr;
    }
    try {
        return operation(*port);
    } catch (...) {
        return port->Errors().RecordCaught();
    }
}

} // namespace tn::vec
