#pragma once
// An environment variable set for the lifetime of a scope, then put back as it was.

#include <QByteArray>
#include <QtGlobal>

namespace quillon::test {

class ScopedEnv {
public:
    ScopedEnv(const char* name, const QByteArray& value)
        : m_name(name), m_previous(qgetenv(name)), m_hadPrevious(qEnvironmentVariableIsSet(name))
    {
        qputenv(name, value);
    }
    ~ScopedEnv()
    {
        if (m_hadPrevious)
            qputenv(m_name, m_previous);
        else
            qunsetenv(m_name);
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    const char* m_name;
    QByteArray m_previous;
    bool m_hadPrevious;
};

}  // namespace quillon::test
