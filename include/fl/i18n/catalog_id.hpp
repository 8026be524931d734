#pragma once

#include <fl/i18n/export.hpp>

#include <exception>
#include <string>

namespace fl::i18n {

namespace detail {
struct identifier_access;
}

/// Identifies a message catalog by at least two tokens with colons between them, such as "fl:i18n".
///
/// A token is made of ASCII letters, digits and "_" and does not begin with a digit. A value is either
/// default-constructed, with all texts empty, or valid.
class FL_I18N_API CatalogID {
public:
    /// A text is not a catalog identifier.
    class FL_I18N_API badCatalogIDException : public std::exception {
    public:
        /// Returns "Bad Catalog ID".
        char const * what() const noexcept override;
    };

    CatalogID();
    /// Takes an identifier; throws `badCatalogIDException`.
    CatalogID(std::string const & id);

    /// Replaces the identifier. Throws `badCatalogIDException` and then leaves the value unchanged.
    void setCatalogID(std::string const & id);

    /// Returns the whole identifier.
    std::string getCatalogID() const;
    /// Returns the whole identifier; the pointer is valid while the object lives and is not changed.
    char const * getCatalogIDStr() const;
    /// Returns the text before the first colon.
    std::string getComponentName() const;
    /// Returns the text after the first colon, which may hold colons itself.
    std::string getSubComponentsNames() const;

private:
    friend class MessageID;
    friend struct detail::identifier_access;

    bool extractIDComponents(std::string const & id, std::string & component, std::string & subcomponents);

    static char const * const badCatException_;

    std::string catalog_id_;
    std::string component_name_;
    std::string sub_components_names_;
};

/// Identifies a message: a catalog identifier, a colon and the message's key, such as
/// "fl:i18n:QzLcInvLcName".
class FL_I18N_API MessageID {
public:
    /// A text is not a message identifier, or a key is empty.
    class FL_I18N_API badMessageIDException : public std::exception {
    public:
        /// Returns "Bad Message ID".
        char const * what() const noexcept override;
    };

    MessageID();
    /// Takes an identifier of at least three tokens; throws `badMessageIDException`.
    MessageID(std::string const & compositeId);
    /// Joins a catalog and a key; throws `badMessageIDException` for an empty key.
    ///
    /// The key's characters are deliberately not checked.
    MessageID(CatalogID const & catalog, std::string const & key);

    /// Replaces the identifier. Throws `badMessageIDException` and then leaves the value unchanged.
    void setCompositeMsgID(std::string const & compositeId);

    /// Returns the whole identifier.
    std::string getCompositeID() const;
    /// Returns the whole identifier; the pointer is valid while the object lives and is not changed.
    char const * getCompositeIDstr() const;
    /// Returns the catalog's identifier: the text before the last colon.
    std::string getCatalogID() const;
    /// Returns the message's key: the text after the last colon.
    std::string getMsgKey() const;

private:
    friend struct detail::identifier_access;

    bool extractIDComponents(std::string const & compositeId);

    static char const * const badMsgException_;

    std::string composite_id_;
    CatalogID catalog_;
    std::string message_key_;
};

} // namespace fl::i18n
