#pragma once

#include <QByteArray>

// Fails chosen file operations of the settings store, for the reliability tests.
// An SQLite file system layer of its own is put in front of the default one and
// made the default; it passes every call through, counts the reads, writes and
// syncs of the store's files (the database, its log and its rollback journal),
// and fails the ones that VISTARRO_STORE_FAULT names:
//
//   VISTARRO_STORE_FAULT=count            counts only
//   VISTARRO_STORE_FAULT=CLASS:N:ERROR    fails the Nth call of CLASS
//   VISTARRO_STORE_FAULT=CLASS:N+:ERROR   fails the Nth call and every later one
//
// CLASS is read, write or sync; ERROR is EIO or ENOSPC, which the failed call
// reports as SQLite's unix layer would (an I/O error, or "database or disk is
// full" for a write). With VISTARRO_STORE_FAULT_WHILE=PATH the calls fail only
// while the file PATH exists, which lets a test take the fault away mid-run.
namespace faultystore {

// Puts the layer in place if VISTARRO_STORE_FAULT is set; false if it is set but
// can't be understood.
bool installFromEnvironment();

// "read=R write=W sync=S failed=F": the calls counted so far, and how many failed.
QByteArray counts();

} // namespace faultystore
