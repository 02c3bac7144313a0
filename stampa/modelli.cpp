// The templates of \MODELLI_STAMPA and their placeholders.
#include "stampa.h"

#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "stato.h"
#include "testata.h"
#include "testo.h"

#include <QDir>

namespace tavolet {

namespace {

const QString kRigaRtf = QStringLiteral("\\cf1\\line ");

} // namespace

QString CartellaModelli(const Stato& stato) {
    return stato.amb.CartellaLavoro + QStringLiteral("\\MODELLI_STAMPA");
}

QStringList ElencoModelli(const Stato& stato) {
    QDir cartella(PercorsoLocale(CartellaModelli(stato)));
    QStringList nomi = cartella.entryList(QDir::Files, QDir::Name | QDir::IgnoreCase);
    return nomi;
}

void PreparaModelli(Stato& stato) {
    ConTrappola(stato, QStringLiteral("PreparaModelli"), [&] {
        if (!ElencoModelli(stato).isEmpty()) return;
        const QString origine = stato.amb.CartellaProgramma + QStringLiteral("\\MODELLI_STAMPA");
        const QStringList nomi = QDir(PercorsoLocale(origine)).entryList(QDir::Files);
        if (nomi.isEmpty()) return;
        CreaCartella(CartellaModelli(stato));
        for (const QString& nome : nomi)
            CopiaFile(origine + u'\\' + nome, CartellaModelli(stato) + u'\\' + nome);
    });
}

QString CorpoStampa(const QStringList& righe) {
    QString corpo;
    for (const QString& r : righe) corpo += RTrim(r) + kRigaRtf;
    return corpo;
}

QByteArray RiempiModello(const Stato& stato, const QByteArray& modello, const QStringList& righe) {
    const Testata& t = stato.testata;
    // The name of the municipality is looked up only after its placeholder was replaced, so
    // the placeholder always goes out empty.
    const QList<std::pair<const char*, QString>> segnaposti = {
        {"_nome_dos_libretto_", t.NomeArchivio},
        {"_anno_libretto_", t.AnnoLibretto},
        {"_data_libretto_", t.DataLibretto},
        {"_protocollo_libretto_", t.Protocollo},
        {"_mappali_libretto_", t.MappaliLibretto},
        {"_foglio_libretto_", t.FoglioLibretto},
        {"_nome_comune_rilievo_", QString()},
        {"_codice_comune_rilievo_", t.CodiceComuneLibretto},
        {"_nome_provincia_rilievo_", t.NomeProvinciaLibretto},
        {"_sigla_provincia_rilievo_", t.SiglaProvinciaLibretto},
        {"_nome_tecnico_libretto_", t.Tecnico},
        {"_titolo_tecnico_libretto_", t.Qualifica},
        {"_nome_provincia_tecnico_", t.ProvinciaAlbo},
        {"_stampa_generale_", CorpoStampa(righe)},
        {"_elenco_possessori_", Replace(stato.doc.TestoPossessori, CRLF, kRigaRtf)},
    };
    QString testo = DaWindows1252(modello);
    for (const auto& [segnaposto, valore] : segnaposti)
        testo = Replace(testo, QString::fromLatin1(segnaposto), valore);
    return AWindows1252(testo);
}

QString PercorsoModelloCompilato(const Stato& stato, const QString& modello) {
    const QString nome = NomeDelFile(modello);
    if (stato.doc.PercorsoLibretto.isEmpty())
        return stato.amb.CartellaLavoro + QStringLiteral("\\_") + nome;
    return stato.doc.PercorsoLibretto + u'_' + nome;
}

QString CompilaModello(Stato& stato, const QString& modello, const QStringList& righe) {
    QString uscita;
    ConTrappola(stato, QStringLiteral(" Buttonplus1_Click"), [&] {
        if (Trim(modello).isEmpty()) return;
        DecoZeroNove(stato);
        stato.TagRoutine = QStringLiteral(" Buttonplus1_Click");
        const QString percorso = modello.contains(u'\\') || modello.contains(u'/')
                                     ? modello
                                     : CartellaModelli(stato) + u'\\' + modello;
        const QByteArray compilato = RiempiModello(stato, LeggiByte(percorso), righe);
        const QString destinazione = PercorsoModelloCompilato(stato, percorso);
        ScriviByte(destinazione, compilato);
        uscita = destinazione;
        stato.piattaforma->ApriConProgramma(destinazione);
    });
    return uscita;
}

} // namespace tavolet
