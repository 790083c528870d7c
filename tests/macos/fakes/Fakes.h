// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
// A model of the system functions that the adapters call: what a test sets, and what it may look at. A call that the
// system would answer with a crash, or that frees what is another's, ends the test program.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace fake
{

struct Data {
    std::string bytes;
};
struct Date {
    double seconds; // since 2001
};
struct Object;
using List = std::vector<Object*>;
using Table = std::map<std::string, Object*>;
// The index is the type's identifier; integers and fractions are both numbers.
using Value = std::variant<std::monostate, std::string, std::int64_t, double, bool, Data, Date, List, Table>;

Object* make(Value value);
Object* list(std::vector<std::string> texts);
inline int objects = 0;             // that live
inline bool noMemory = false;       // for strings
inline bool halfACharacter = false; // strings cannot be told in UTF-8

// Power assertions.
struct Assertion {
    std::string type, name;
    std::uint32_t level;
};
inline std::map<std::uint32_t, Assertion> assertions; // that are held
inline int assertionStatus = 0;

// Power sources.
enum class Snapshot { none, withoutList, listOfOtherType, complete };
inline Snapshot snapshot = Snapshot::complete;
inline std::vector<std::map<std::string, Value>> powerSources;
inline bool descriptionsAreText = false;

// Processors, in the kernel's order.
using Ticks = std::vector<std::uint32_t>;
inline Ticks host{0, 0, 0, 0};
inline std::vector<Ticks> processors;
inline int hostStatus = 0, processorStatus = 0;
inline int hostRights = 0;
inline std::map<std::uintptr_t, std::uintptr_t> mapped; // sizes by address

// Network interfaces.
struct Interface {
    std::string name;
    std::uint32_t received, sent;
    int family = 18;
    bool hasAddress = true, hasData = true;
};
inline std::vector<Interface> interfaces;
inline bool refuseInterfaces = false;
inline int interfaceLists = 0; // that live

// Preferences of this application.
inline std::map<std::string, Value> preferences;
inline int synchronized = 0;

// Languages.
inline std::string locale = "en_US";
inline Object* languages = nullptr; // handed over

// The registry.
inline std::vector<Value> registry; // each service's "deviceActive"; monostate: it has none
inline int registryStatus = 0;
inline int registryObjects = 0; // that live

// Sound devices.
struct Device {
    std::uint32_t inputSize, isRunning;
    int sizeStatus = 0, readStatus = 0;
};
inline std::vector<Device> devices;
inline int devicesSizeStatus = 0, devicesReadStatus = 0;
inline std::size_t devicesGone = 0; // between the two questions

// Folder events.
inline int sources = 0; // that live
inline bool refuseSources = false;
void happen(unsigned long events); // in every watched folder, and what is due is run
void runQueues();

void reset();

} // namespace fake
