// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
// What the adapters use of the kernel's interface, for a target that has none.
#pragma once
#include <stdint.h>

typedef uint32_t mach_port_t, natural_t, mach_msg_type_number_t;
typedef int32_t integer_t, kern_return_t;
typedef integer_t *host_info_t, *processor_info_array_t;
typedef uintptr_t vm_address_t, vm_size_t;
#define KERN_SUCCESS 0
#define CPU_STATE_USER 0
#define CPU_STATE_SYSTEM 1
#define CPU_STATE_IDLE 2
#define CPU_STATE_NICE 3
#define CPU_STATE_MAX 4
#define HOST_CPU_LOAD_INFO 3
#define PROCESSOR_CPU_LOAD_INFO 2
#define HOST_CPU_LOAD_INFO_COUNT 4
struct host_cpu_load_info {
    natural_t cpu_ticks[CPU_STATE_MAX];
};
#ifdef __cplusplus
extern "C" {
#endif
mach_port_t mach_host_self(void);
mach_port_t mach_task_self(void);
kern_return_t mach_port_deallocate(mach_port_t task, mach_port_t name);
kern_return_t host_statistics(mach_port_t host, int flavor, host_info_t info, mach_msg_type_number_t* words);
kern_return_t host_processor_info(mach_port_t host, int flavor, natural_t* count, processor_info_array_t* info,
                                  mach_msg_type_number_t* words);
kern_return_t vm_deallocate(mach_port_t task, vm_address_t address, vm_size_t size);
#ifdef __cplusplus
}
#endif
