#pragma once
// The work in one transaction of the connection: all of it stored, or, when it throws, none of it and the
// error goes on to the caller. A rollback that fails too leaves a debug line.
#include "platform/basic/log.h"
#include "platform/store/connection.h"

namespace store {

template <class Work>
void inTransaction(Connection& cn, Work&& work) {
    cn.BeginTrans();
    try {
        work();
        cn.CommitTrans();
    } catch (...) {
        basic::ignore(lcStore(), [&] { cn.RollbackTrans(); });
        throw;
    }
}

}  // namespace store
