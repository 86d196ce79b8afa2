// Every public C++ header at once. Each also stands alone.
#ifndef VSKCORE_VSKCORE_H
#define VSKCORE_VSKCORE_H

#include <vskcore/cimxml/TCIMXMLParser.h>
#include <vskcore/cimxml/TXmlParser.h>
#include <vskcore/core/ILogger.h>
#include <vskcore/core/TLogRecord.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/core/vskLog.h>
#include <vskcore/core/vskStatus.h>
#include <vskcore/core/vskVersion.h>
#include <vskcore/identity/TCIMSchemaHelper.h>
#include <vskcore/model/ICIMAllowQualifiers.h>
#include <vskcore/model/ICIMElement.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TCIMValueImpl.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/platform/TOSSpecific.h>
#include <vskcore/plugin/IPlugin.h>
#include <vskcore/plugin/IPluginAdvancedQueryCallbacks.h>
#include <vskcore/plugin/IPluginBasicQueryCallbacks.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/plugin/IPluginManager.h>
#include <vskcore/plugin/IPluginWriteCallbacks.h>
#include <vskcore/plugin/IQueryManager.h>
#include <vskcore/plugin/TPlugin.h>

#endif
