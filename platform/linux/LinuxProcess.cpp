// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxProcess.h"

#include "platform/linux/CharacterEncoding.h"
#include "platform/linux/LinuxApplicationSupport.h"

#include <cstdio>

#include <unistd.h>

namespace orrinvale
{

namespace
{

std::filesystem::path instanceFolder()
{
    LinuxApplicationSupport support;
    return support.runtimeDirectory().value_or(support.temporaryDirectory());
}

} // namespace

LinuxProcess::LinuxProcess(char** arguments) : m_arguments(arguments), m_instance(instanceFolder())
{
    useUTF8();
}

void LinuxProcess::end(int status)
{
    m_instance.stop();
    std::fflush(nullptr);
    m_sessionBus.beginAnew(m_arguments);
    ::_exit(status);
}

} // namespace orrinvale
