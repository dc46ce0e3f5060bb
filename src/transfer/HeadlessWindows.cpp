#include "transfer/HeadlessWindows.h"

#include "link/DriveSerial.h"

namespace quillon {

CM330Doc* CHeadlessWindows::NewDocumentForDrive() {
    m_doc = std::make_unique<CM330Doc>(m_session);
    m_doc->OnNewDocument();
    return m_doc.get();
}

void CHeadlessWindows::DeleteLink() { m_link.Close(); }

}  // namespace quillon
