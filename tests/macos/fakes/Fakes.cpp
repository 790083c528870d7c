// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tests/macos/fakes/Fakes.h"

#include <CoreAudio/CoreAudio.h>
#include <IOKit/IOKitLib.h>
#include <IOKit/ps/IOPowerSources.h>
#include <IOKit/pwr_mgt/IOPMLib.h>
#include <dispatch/dispatch.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <functional>
#include <set>
#include <utility>

#include <fcntl.h>
#include <ifaddrs.h>
#include <net/if.h>

using namespace fake;

static void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "misused: %s\n", what);
    std::abort();
}

// CoreFoundation.

struct fake::Object {
    Value value;
    int owners = 1;
    bool isConstant = false;
};

static Object* object(const void* reference)
{
    require(reference != nullptr, "a null object");
    return static_cast<Object*>(const_cast<void*>(reference));
}
template <typename T>
static T& as(const void* reference)
{
    auto* value = std::get_if<T>(&object(reference)->value);
    require(value != nullptr, "an object of another type");
    return *value;
}
template <typename Reference>
static Reference give(Value value)
{
    return reinterpret_cast<Reference>(make(std::move(value)));
}
static CFTypeID typeId(std::size_t index) { return index == 3 ? 2 : index; }

Object* fake::make(Value value)
{
    ++objects;
    return new Object{std::move(value)};
}
Object* fake::list(std::vector<std::string> texts)
{
    List items;
    for (auto& text : texts)
        items.push_back(make(std::move(text)));
    return make(std::move(items));
}
static void drop(Object* dying)
{
    if (dying->isConstant || --dying->owners > 0)
        return;
    if (auto* items = std::get_if<List>(&dying->value))
        for (auto* item : *items)
            drop(item);
    if (auto* items = std::get_if<Table>(&dying->value))
        for (auto& [key, item] : *items)
            drop(item);
    --objects;
    delete dying;
}

static Object yes{true, 1, true}, no{false, 1, true};
const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFBooleanRef kCFBooleanTrue = reinterpret_cast<CFBooleanRef>(&yes);
const CFBooleanRef kCFBooleanFalse = reinterpret_cast<CFBooleanRef>(&no);
const CFTimeInterval kCFAbsoluteTimeIntervalSince1970 = 978307200;
static Object application{std::string("this application"), 1, true};
const CFStringRef kCFPreferencesCurrentApplication = reinterpret_cast<CFStringRef>(&application);

CFStringRef fakeConstantString(const char* text)
{
    static std::map<std::string, Object> all;
    auto& made = all[text];
    made.value = std::string(text);
    made.isConstant = true;
    return reinterpret_cast<CFStringRef>(&made);
}
void CFRelease(CFTypeRef reference) { drop(object(reference)); }
CFTypeRef CFRetain(CFTypeRef reference)
{
    ++object(reference)->owners;
    return reference;
}
CFTypeID CFGetTypeID(CFTypeRef reference) { return typeId(object(reference)->value.index()); }
CFTypeID CFStringGetTypeID() { return 1; }
CFTypeID CFNumberGetTypeID() { return 2; }
CFTypeID CFBooleanGetTypeID() { return 4; }
CFTypeID CFDataGetTypeID() { return 5; }
CFTypeID CFDateGetTypeID() { return 6; }
CFTypeID CFArrayGetTypeID() { return 7; }
CFTypeID CFDictionaryGetTypeID() { return 8; }

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex size, CFStringEncoding encoding,
                                    Boolean)
{
    require(encoding == kCFStringEncodingUTF8, "an encoding that is not modelled");
    const std::string text(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
    const auto isText = text.find('\xFF') == text.npos; // stands for all that is no UTF-8
    return isText && !noMemory ? give<CFStringRef>(text) : nullptr;
}
CFIndex CFStringGetLength(CFStringRef string)
{
    CFIndex units = 0; // of UTF-16
    for (const unsigned char byte : as<std::string>(string))
        units += (byte & 0xC0) == 0x80 ? 0 : byte >= 0xF0 ? 2 : 1;
    return units;
}
CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding) { return length * 3; }
Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex size, CFStringEncoding)
{
    const auto& text = as<std::string>(string);
    if (halfACharacter || static_cast<CFIndex>(text.size()) + 1 > size)
        return false;
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return true;
}
Boolean CFBooleanGetValue(CFBooleanRef boolean) { return as<bool>(boolean); }
CFNumberRef CFNumberCreate(CFAllocatorRef, CFNumberType type, const void* value)
{
    require(type == kCFNumberSInt64Type || type == kCFNumberDoubleType, "a number type that is not modelled");
    if (type == kCFNumberDoubleType)
        return give<CFNumberRef>(*static_cast<const double*>(value));
    return give<CFNumberRef>(*static_cast<const std::int64_t*>(value));
}
Boolean CFNumberIsFloatType(CFNumberRef number)
{
    require(CFGetTypeID(number) == CFNumberGetTypeID(), "no number");
    return std::holds_alternative<double>(object(number)->value);
}
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* to)
{
    if (type == kCFNumberDoubleType)
        std::memcpy(to, &as<double>(number), sizeof(double));
    else
        std::memcpy(to, &as<std::int64_t>(number), sizeof(std::int64_t));
    return true;
}
CFDataRef CFDataCreate(CFAllocatorRef, const UInt8* bytes, CFIndex length)
{
    return give<CFDataRef>(Data{std::string(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length))});
}
CFIndex CFDataGetLength(CFDataRef data) { return static_cast<CFIndex>(as<Data>(data).bytes.size()); }
const UInt8* CFDataGetBytePtr(CFDataRef data) { return reinterpret_cast<const UInt8*>(as<Data>(data).bytes.data()); }
CFDateRef CFDateCreate(CFAllocatorRef, CFAbsoluteTime at) { return give<CFDateRef>(Date{at}); }
CFAbsoluteTime CFDateGetAbsoluteTime(CFDateRef date) { return as<Date>(date).seconds; }
CFIndex CFArrayGetCount(CFArrayRef array) { return static_cast<CFIndex>(as<List>(array).size()); }
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index)
{
    auto& items = as<List>(array);
    require(index >= 0 && index < static_cast<CFIndex>(items.size()), "an index beyond the end");
    return items[static_cast<std::size_t>(index)];
}
const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key)
{
    const auto& items = as<Table>(dictionary);
    const auto found = items.find(as<std::string>(key));
    return found == items.end() ? nullptr : found->second;
}

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef of)
{
    require(of == kCFPreferencesCurrentApplication, "another application's preferences");
    const auto found = preferences.find(as<std::string>(key));
    if (found == preferences.end())
        return nullptr;
    if (const auto* boolean = std::get_if<bool>(&found->second))
        return CFRetain(*boolean ? kCFBooleanTrue : kCFBooleanFalse);
    return make(found->second);
}
void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef of)
{
    require(of == kCFPreferencesCurrentApplication, "another application's preferences");
    preferences[as<std::string>(key)] = object(value)->value;
}
Boolean CFPreferencesAppSynchronize(CFStringRef)
{
    ++synchronized;
    return true;
}

CFLocaleRef CFLocaleCopyCurrent() { return give<CFLocaleRef>(List{make(locale)}); }
CFLocaleIdentifier CFLocaleGetIdentifier(CFLocaleRef of)
{
    return reinterpret_cast<CFLocaleIdentifier>(as<List>(of).front());
}
CFArrayRef CFLocaleCopyPreferredLanguages() { return reinterpret_cast<CFArrayRef>(std::exchange(languages, nullptr)); }

// Power.

IOReturn IOPMAssertionCreateWithName(CFStringRef type, IOPMAssertionLevel level, CFStringRef name, IOPMAssertionID* id)
{
    static std::uint32_t last = 32768;
    if (assertionStatus != 0)
        return assertionStatus;
    *id = ++last;
    assertions[*id] = {as<std::string>(type), as<std::string>(name), level};
    return 0;
}
IOReturn IOPMAssertionRelease(IOPMAssertionID id) { return assertions.erase(id) == 1 ? 0 : kIOReturnNotFound; }

CFTypeRef IOPSCopyPowerSourcesInfo()
{
    if (snapshot == Snapshot::none)
        return nullptr;
    List all;
    for (const auto& description : powerSources) {
        Table items;
        for (const auto& [key, value] : description)
            items[key] = make(value);
        all.push_back(descriptionsAreText ? make(std::string("text")) : make(std::move(items)));
    }
    return make(std::move(all));
}
CFArrayRef IOPSCopyPowerSourcesList(CFTypeRef info)
{
    if (snapshot == Snapshot::withoutList)
        return nullptr;
    if (snapshot == Snapshot::listOfOtherType)
        return give<CFArrayRef>(std::string("text"));
    auto items = as<List>(info);
    for (auto* item : items)
        ++item->owners;
    return give<CFArrayRef>(std::move(items));
}
CFDictionaryRef IOPSGetPowerSourceDescription(CFTypeRef info, CFTypeRef source)
{
    for (auto* item : as<List>(info))
        if (item == source)
            return reinterpret_cast<CFDictionaryRef>(item);
    return nullptr;
}

// The kernel.

constexpr mach_port_t machinePort = 17, taskPort = 3;
mach_port_t mach_host_self()
{
    ++hostRights;
    return machinePort;
}
mach_port_t mach_task_self() { return taskPort; }
kern_return_t mach_port_deallocate(mach_port_t task, mach_port_t name)
{
    require(task == taskPort && name == machinePort && hostRights-- > 0, "a right that is not ours");
    return 0;
}
kern_return_t host_statistics(mach_port_t machine, int flavor, host_info_t to, mach_msg_type_number_t* words)
{
    require(machine == machinePort && flavor == HOST_CPU_LOAD_INFO && *words == 4, "host_statistics");
    if (hostStatus == 0)
        std::memcpy(to, host.data(), 16);
    return hostStatus;
}
kern_return_t host_processor_info(mach_port_t machine, int flavor, natural_t* count, processor_info_array_t* array,
                                  mach_msg_type_number_t* words)
{
    require(machine == machinePort && flavor == PROCESSOR_CPU_LOAD_INFO, "host_processor_info");
    if (processorStatus != 0) {
        *array = reinterpret_cast<processor_info_array_t>(0x10); // nobody may look there
        return processorStatus;
    }
    *count = static_cast<natural_t>(processors.size());
    *words = *count * 4;
    auto* made = static_cast<integer_t*>(std::malloc(*words * 4));
    for (std::size_t i = 0; i < processors.size(); ++i)
        std::memcpy(made + 4 * i, processors[i].data(), 16);
    *array = made;
    mapped[reinterpret_cast<vm_address_t>(made)] = *words * 4u;
    return 0;
}
kern_return_t vm_deallocate(mach_port_t task, vm_address_t address, vm_size_t size)
{
    require(task == taskPort && mapped.contains(address) && mapped[address] == size, "vm_deallocate");
    mapped.erase(address);
    std::free(reinterpret_cast<void*>(address));
    return 0;
}

// The C library's two take the place of its own in this program.
extern "C" int getifaddrs(ifaddrs** first) noexcept
{
    if (refuseInterfaces)
        return -1;
    ++interfaceLists;
    *first = nullptr;
    for (auto each = interfaces.rbegin(); each != interfaces.rend(); ++each) {
        auto* entry = new ifaddrs{};
        entry->ifa_next = *first;
        entry->ifa_name = const_cast<char*>(each->name.c_str());
        if (each->hasAddress)
            entry->ifa_addr = new sockaddr{static_cast<sa_family_t>(each->family), {}};
        if (each->hasData)
            entry->ifa_data = new if_data{each->received, each->sent};
        *first = entry;
    }
    return 0;
}
extern "C" void freeifaddrs(ifaddrs* first) noexcept
{
    --interfaceLists;
    while (auto* entry = first) {
        first = entry->ifa_next;
        delete entry->ifa_addr;
        delete static_cast<if_data*>(entry->ifa_data);
        delete entry;
    }
}

// The registry: 1 is the iterator, the services follow.

const mach_port_t kIOMainPortDefault = 0;
static std::size_t nextService = 0;
CFMutableDictionaryRef IOServiceMatching(const char* name)
{
    require(std::strcmp(name, "AppleUSBVDCDriver") == 0, "a class that is not modelled");
    return reinterpret_cast<CFMutableDictionaryRef>(make(Table{}));
}
kern_return_t IOServiceGetMatchingServices(mach_port_t, CFDictionaryRef matching, io_iterator_t* existing)
{
    CFRelease(matching);
    if (registryStatus != 0)
        return registryStatus;
    ++registryObjects;
    nextService = 0;
    *existing = 1;
    return 0;
}
io_object_t IOIteratorNext(io_iterator_t iterator)
{
    require(iterator == 1, "no iterator");
    if (nextService == registry.size())
        return IO_OBJECT_NULL;
    ++registryObjects;
    return static_cast<io_object_t>(2 + nextService++);
}
CFTypeRef IORegistryEntryCreateCFProperty(io_registry_entry_t entry, CFStringRef key, CFAllocatorRef, CFOptionFlags)
{
    require(as<std::string>(key) == "deviceActive", "a property that is not modelled");
    const auto& value = registry.at(entry - 2);
    return std::holds_alternative<std::monostate>(value) ? nullptr : make(value);
}
kern_return_t IOObjectRelease(io_object_t object)
{
    require(object != IO_OBJECT_NULL && registryObjects-- > 0, "an object that is not ours");
    return 0;
}

// Sound: the device of index i is numbered i + 100.

static Device& device(AudioObjectID id) { return devices.at(id - 100); }
OSStatus AudioObjectGetPropertyDataSize(AudioObjectID id, const AudioObjectPropertyAddress* address, UInt32,
                                        const void*, UInt32* size)
{
    if (id == kAudioObjectSystemObject) {
        require(address->mSelector == kAudioHardwarePropertyDevices, "a property that is not modelled");
        *size = static_cast<UInt32>(devices.size() * sizeof(AudioObjectID));
        return devicesSizeStatus;
    }
    require(address->mSelector == kAudioDevicePropertyStreams && address->mScope == kAudioObjectPropertyScopeInput,
            "a property that is not modelled");
    *size = device(id).inputSize;
    return device(id).sizeStatus;
}
OSStatus AudioObjectGetPropertyData(AudioObjectID id, const AudioObjectPropertyAddress* address, UInt32, const void*,
                                    UInt32* size, void* data)
{
    if (id == kAudioObjectSystemObject) {
        require(*size == devices.size() * sizeof(AudioObjectID), "a buffer of another size");
        const auto left = devices.size() - devicesGone;
        for (std::size_t i = 0; i < left; ++i)
            static_cast<AudioObjectID*>(data)[i] = static_cast<AudioObjectID>(100 + i);
        *size = static_cast<UInt32>(left * sizeof(AudioObjectID));
        return devicesReadStatus;
    }
    require(address->mSelector == kAudioDevicePropertyDeviceIsRunningSomewhere && *size == 4, "an unknown property");
    std::memcpy(data, &device(id).isRunning, 4);
    return device(id).readStatus;
}

// Dispatch sources begin suspended, are cancelled later and once, and live until their owner and each call let go.

struct dispatch_source_s {
    int folder;
    unsigned long mask;
    void* context = nullptr;
    dispatch_function_t onEvent = nullptr, onCancel = nullptr;
    int owners = 1;
    bool suspended = true, cancelled = false;
};
struct dispatch_queue_s {
};
struct dispatch_source_type_s {
};
const dispatch_source_type_s _dispatch_source_type_vnode{};
static std::set<dispatch_source_t> live;
static std::deque<std::function<void()>> due;

dispatch_queue_t dispatch_get_global_queue(intptr_t priority, uintptr_t)
{
    require(priority == QOS_CLASS_UTILITY, "another priority");
    return nullptr;
}
dispatch_queue_t dispatch_queue_create_with_target(const char*, void*, dispatch_queue_t)
{
    static dispatch_queue_s queue;
    return &queue;
}
dispatch_source_t dispatch_source_create(dispatch_source_type_t type, uintptr_t handle, uintptr_t mask,
                                         dispatch_queue_t queue)
{
    require(type == DISPATCH_SOURCE_TYPE_VNODE && queue != nullptr, "another source, or a queue of several threads");
    if (refuseSources)
        return nullptr;
    ++sources;
    return *live.insert(new dispatch_source_s{static_cast<int>(handle), mask}).first;
}
void dispatch_set_context(dispatch_source_t source, void* context) { source->context = context; }
void dispatch_source_set_event_handler_f(dispatch_source_t source, dispatch_function_t f) { source->onEvent = f; }
void dispatch_source_set_cancel_handler_f(dispatch_source_t source, dispatch_function_t f) { source->onCancel = f; }
void dispatch_resume(dispatch_source_t source)
{
    require(source->onEvent && source->onCancel, "a source without handlers");
    source->suspended = false;
}
void dispatch_release(dispatch_source_t source)
{
    if (--source->owners > 0)
        return;
    require(!source->suspended, "the release of a suspended source");
    require(source->cancelled, "the release of a source that was not cancelled: its context leaks");
    live.erase(source);
    --sources;
    delete source;
}
void dispatch_source_cancel(dispatch_source_t source)
{
    if (std::exchange(source->cancelled, true))
        return;
    ++source->owners;
    due.push_back([source] {
        require(::fcntl(source->folder, F_GETFD) >= 0, "a folder closed before its source let go");
        source->onCancel(source->context);
        dispatch_release(source);
    });
}
void fake::runQueues()
{
    while (!due.empty()) {
        const auto next = std::move(due.front());
        due.pop_front();
        next();
    }
}
void fake::happen(unsigned long events)
{
    for (auto* source : live) {
        if (source->suspended || source->cancelled || (source->mask & events) == 0)
            continue;
        ++source->owners;
        due.push_back([source] {
            if (!source->cancelled)
                source->onEvent(source->context);
            dispatch_release(source);
        });
    }
    runQueues();
}

void fake::reset()
{
    noMemory = halfACharacter = descriptionsAreText = refuseInterfaces = refuseSources = false;
    assertions.clear();
    snapshot = Snapshot::complete;
    powerSources.clear();
    host = {0, 0, 0, 0};
    processors.clear();
    assertionStatus = hostStatus = processorStatus = registryStatus = devicesSizeStatus = devicesReadStatus = 0;
    interfaces.clear();
    preferences.clear();
    synchronized = 0;
    registry.clear();
    devices.clear();
    devicesGone = 0;
}
