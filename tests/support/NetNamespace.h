#pragma once
// Tests that send UDP broadcasts run in a network namespace of their own, where only the
// loopback interface exists: nothing they send can leave this machine, and they can't meet
// another test's sockets on the same port. The test runs itself again in a child process under
// `unshare -rn` (a user and a network namespace, no privileges needed) and reports the child's
// outcome; where namespaces are unavailable it is skipped with the reason.
//
//   TEST(Search, FindsModules) {
//       QUILLON_IN_OWN_NETWORK_NAMESPACE();
//       ... runs only inside the namespace, with lo up ...
//   }

#include <QString>
#include <gtest/gtest.h>

namespace quillon::test {

enum class NetnsRun {
    Inside,       // this process is the child: go on with the test
    Done,         // the child ran the test; its outcome has been reported here
    Unavailable,  // no namespaces on this machine: skip
};

NetnsRun RunInOwnNetworkNamespace(QString& why);

}  // namespace quillon::test

#define QUILLON_IN_OWN_NETWORK_NAMESPACE()                                                  \
    do {                                                                                    \
        QString quillonWhy_;                                                                \
        const auto quillonRun_ = ::quillon::test::RunInOwnNetworkNamespace(quillonWhy_);    \
        if (quillonRun_ == ::quillon::test::NetnsRun::Done)                                 \
            return;                                                                         \
        if (quillonRun_ == ::quillon::test::NetnsRun::Unavailable)                          \
            GTEST_SKIP() << quillonWhy_.toStdString();                                      \
    } while (0)
