#include "serialize/XmlDocumentFormat.h"

#include "serialize/XmlReader.h"
#include "serialize/XmlWriter.h"

namespace OrrinQuiver {

QString XmlDocumentFormat::headerXml(const Header &header) const
{
    return XmlWriter::headerFragment(m_control, header);
}

void XmlDocumentFormat::readHeaderXml(Header &header, const QString &xml) const
{
    XmlReader::readHeaderFragment(header, xml);
}

QString XmlDocumentFormat::historyXml(const Navigation &navigation) const
{
    return XmlWriter::historyDocument(navigation);
}

} // namespace OrrinQuiver
