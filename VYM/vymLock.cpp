// SPDX-License-Identifier: MIT
#include "VYM/vymLock.h"

CRITSECT::CRITSECT()
{
    pthread_mutexattr_init(&m_attribute);
    pthread_mutexattr_settype(&m_attribute, PTHREAD_MUTEX_RECURSIVE);
    pthread_mutex_init(&m_mutex, &m_attribute);
}

CRITSECT::~CRITSECT()
{
    pthread_mutex_destroy(&m_mutex);
    pthread_mutexattr_destroy(&m_attribute);
}

int CRITSECT::Lock()
{
    return pthread_mutex_lock(&m_mutex);
}

int CRITSECT::Unlock()
{
    return pthread_mutex_unlock(&m_mutex);
}
