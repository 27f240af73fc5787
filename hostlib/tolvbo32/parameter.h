#pragma once

#include "hostlib/tolvbo32/parameter_description.h"
#include "hostlib/tolvbo32/parameter_set.h"

#include <QStringList>

namespace krt550 {

class CParameterLink;

/// One drive parameter: a raw 16-bit word with the description that turns it into text and back.
/// The setters change this object only; WriteToDrive sends it.
class HOSTLIB_EXPORT CParameter : public CParameterSet {
public:
    /// `link` is borrowed and outlives the parameter; null makes every access to the drive fail. A copy built with
    /// another parent still reads and writes the register of its description.
    CParameter(CParameterGroup* parent, ParameterDescription description, CParameterLink* link);
    ~CParameter() override;

    /// Reads the word from the drive. False on failure: the value stays, GetLastError has the reason.
    virtual bool ReadFromDrive();
    /// Writes the word to the drive; `option` is always 0. False on failure, with GetLastError.
    virtual bool WriteToDrive(int option);

    /// The drive calls it something else from now on.
    void Rename(const QString& name);

    /// Word of this object: what was last read or set.
    quint16 GetValue() const { return m_value; }
    /// Word that the drive was last known to hold.
    quint16 GetActualValue() const { return m_actualValue; }
    /// Sets the word; refused outside the limits or the value list. `flag` is always false.
    bool SetValue(quint16 word, bool flag);
    /// Sets the value by a text of the value list or a number.
    bool SetValue(const QString& text) { return SetStringValue(text); }
    /// Sets the value by text: a text of the value list, or a number in shown units.
    bool SetStringValue(const QString& text);
    /// Text of GetValue in shown units.
    QString GetStringValue() const;

    double GetMinValue() const { return m_description.minimum; }
    double GetMaxValue() const { return m_description.maximum; }
    /// Code of DataType: 1, 2, 4 or 8.
    int GetDataType() const { return static_cast<int>(m_description.dataType); }
    /// Code of ParameterType.
    int GetType() const { return static_cast<int>(m_description.type); }
    /// Number of decimals.
    int GetResolution() const { return m_description.decimals; }
    /// 0 no value list, 1 a list of texts.
    int GetValueListType() const { return IsValueList() ? 1 : 0; }
    bool IsValueList() const { return m_description.isValueList(); }
    const QString& GetUnit() const { return m_description.unit; }
    /// The texts of the value list, newly made: the caller deletes it. Null without a list. An entry "#excl#"
    /// stands for a value that is not offered.
    QStringList* GetValueList() const;

    const ParameterDescription& GetDescription() const { return m_description; }
    CParameterLink* GetLink() const { return m_link; }

private:
    bool Refuse(const QString& error);

    ParameterDescription m_description;
    CParameterLink* m_link;
    quint16 m_value = 0;
    quint16 m_actualValue = 0;
};

} // namespace krt550
