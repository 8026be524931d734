#pragma once

#include <fl/i18n/export.hpp>

#include <string>

namespace fl::i18n::detail {
struct identifier_access;
}

/// Identifier carriers of the resource-core library: texts that are checked where they are used.
namespace resource_core {

/// Carries the text of a catalog identifier, such as "fl:i18n".
class FL_I18N_API BaseCatalogID {
public:
    /// Takes any text.
    BaseCatalogID(std::string id);

    /// Returns the identifier's text as given.
    std::string getCatalogID() const;

private:
    std::string id_;
};

/// Carries the text of a message identifier, such as "fl:i18n:QzLcInvLcName".
class FL_I18N_API BaseMsgID {
public:
    /// Takes any text.
    BaseMsgID(std::string id);

    /// Returns the identifier's text as given.
    std::string getCompositeID() const;

private:
    friend struct fl::i18n::detail::identifier_access;

    std::string id_;
};

/// Returns the name by which the catalog service knows a catalog: its identifier's text, unchanged.
FL_I18N_API std::string makeInternalCatalogName(std::string const & id);

} // namespace resource_core
