#include "app/TrustQuestion.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace mervak {

namespace {

QString pick(Language language, const char* catalan, const char* spanish) {
    return QString::fromUtf8(language == Language::Spanish ? spanish : catalan);
}

QString effect(const GuardedCommand& command, Language language) {
    using Kind = GuardedCommand::Kind;
    switch (command.kind) {
    case Kind::StartProgram:
        return pick(language, "engegar el programa \"%1\"", "iniciar el programa \"%1\"");
    case Kind::WriteSettings:
        return pick(language, "escriure la configuració %1", "escribir la configuración %1");
    case Kind::OpenTemplate:
        return pick(language, "obrir la plantilla %1", "abrir la plantilla %1");
    case Kind::ReadFile:
        return pick(language, "llegir %1", "leer %1");
    }
    return {};
}

QString where(const QList<int16_t>& areas, Language language) {
    QStringList numbers;
    for (const int16_t area : areas)
        numbers.append(QString::number(area));
    if (areas.size() == 1)
        return pick(language, "àrea %1", "área %1").arg(numbers.first());
    return pick(language, "àrees %1", "áreas %1").arg(numbers.join(QStringLiteral(", ")));
}

} // namespace

TrustQuestion::TrustQuestion(QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::WindowStaysOnTopHint), text_(new QLabel),
      remember_(new QCheckBox) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setObjectName(QStringLiteral("trustQuestion"));
    text_->setWordWrap(true);
    text_->setTextFormat(Qt::PlainText);
    remember_->setFocusPolicy(Qt::NoFocus);
    auto* row = new QHBoxLayout;
    row->addWidget(remember_);
    row->addStretch();
    for (const bool allow : {true, false}) {
        auto* button = new QPushButton;
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QPushButton::clicked, this, [this, allow] { answer(allow); });
        row->addWidget(button);
        buttons_.append(button);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_);
    layout->addLayout(row);
}

QStringList TrustQuestion::describe(const QList<AuditEntry>& entries, Language language) {
    QList<const GuardedCommand*> effects;
    QList<QList<int16_t>> areas;
    for (const AuditEntry& entry : entries) {
        qsizetype at = 0;
        while (at < effects.size() && (effects[at]->kind != entry.command.kind ||
                                       effects[at]->target != entry.command.target))
            ++at;
        if (at == effects.size()) {
            effects.append(&entry.command);
            areas.append(QList<int16_t>());
        }
        if (!areas[at].contains(entry.area))
            areas[at].append(entry.area);
    }
    QStringList lines;
    for (qsizetype i = 0; i < effects.size(); ++i)
        lines.append(effect(*effects[i], language).arg(effects[i]->target) + QStringLiteral(" (") +
                     where(areas[i], language) + u')');
    return lines;
}

void TrustQuestion::ask(const QString& file, const QList<AuditEntry>& entries, Language language) {
    language_ = language;
    setWindowTitle(
        pick(language, "Plantilla que no és de confiança", "Plantilla que no es de confianza"));
    QString text = pick(language, "La plantilla %1 vol:", "La plantilla %1 quiere:")
                       .arg(QFileInfo(file).fileName());
    for (const QString& line : describe(entries, language))
        text += QStringLiteral("\n  • ") + line;
    text +=
        QStringLiteral("\n\n") +
        pick(language, "Mentre no ho permeteu, això no es fa; la resta de la plantilla funciona.",
             "Mientras no lo permita, esto no se hace; el resto de la plantilla funciona.");
    text_->setText(text);
    remember_->setText(pick(language, "Recorda la resposta", "Recuerda la respuesta"));
    remember_->setChecked(false);
    buttons_[0]->setText(pick(language, "Permetre", "Permitir"));
    buttons_[1]->setText(pick(language, "No permetre", "No permitir"));
    adjustSize();
    show();
    raise();
}

void TrustQuestion::answer(bool allow) {
    hide();
    emit answered(allow, remember_->isChecked());
}

} // namespace mervak
