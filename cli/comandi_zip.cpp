// The ZIP writer from the command line.
#include "comandi.h"
#include "zip.h"

namespace tavolet::cli {

namespace {

const Registra zip({{"zip"},
                    "OUT FILE... [--commento TESTO]",
                    "scrive l'archivio OUT con i FILE, sostituendolo se esiste",
                    2,
                    [](Contesto& c) {
                        QStringList file;
                        QString commento;
                        const QStringList& a = c.argomenti;
                        for (qsizetype i = 1; i < a.size(); ++i) {
                            if (a[i] == u"--commento") {
                                if (i + 1 >= a.size()) {
                                    c.out.flush();
                                    QTextStream(stderr) << "--commento vuole un testo\n";
                                    return 2;
                                }
                                commento = a[++i];
                            } else {
                                file << a[i];
                            }
                        }
                        if (file.isEmpty()) {
                            QTextStream(stderr) << "Uso: tavolet-cli zip OUT FILE...\n";
                            return 2;
                        }
                        ZipClass archivio;
                        archivio.Comment(commento);
                        for (const QString& f : file) {
                            if (!archivio.AddFile(PercorsoArgomento(f))) {
                                c.piattaforma.Messaggio(f + QStringLiteral(" NON trovato!"),
                                                        QStringLiteral("Tavolet"), Icona::Avviso);
                                return 1;
                            }
                        }
                        const QString out = PercorsoLocale(PercorsoArgomento(a[0]));
                        if (!archivio.WriteZip(out, true)) {
                            MostraErrore(c.stato, archivio.UltimoErrore(),
                                         DescrizioneErrore(archivio.UltimoErrore()),
                                         QStringLiteral("WriteZip"));
                            return 1;
                        }
                        return 0;
                    }});

} // namespace

} // namespace tavolet::cli
