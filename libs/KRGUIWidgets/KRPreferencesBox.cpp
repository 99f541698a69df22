#include "KRPreferencesBox.h"

KRPreferencesBox::KRPreferencesBox(KRPreferencesType type, const QString &title, QWidget *parent)
    : QGroupBox(title, parent), m_type(type)
{ }

KRPreferencesBox::~KRPreferencesBox() = default;
