#include "text/Labels.h"

#include <algorithm>

#include "text/Language.h"

namespace text {

namespace {

// As short as they can be: they stand on buttons. One language that begins like another comes
// first.
constexpr Labels all[] = {
    {"ar", "المحتويات", "الفهرس", "بحث", "النتائج", "تصفية", "عرض المزيد", "الانتقال إلى النص",
     "السابق", "التالي", "لا توجد كلمات رئيسية", "لا توجد صفحة لـ %1", "البحث غير متاح", "أنت هنا",
     "تعليمات"},
    {"eu", "Edukia", "Aurkibidea", "Bilatu", "Emaitzak", "Iragazi", "Erakutsi gehiago",
     "Joan testura", "Aurrekoa", "Hurrengoa", "Ez dago gako-hitzik",
     "Ez dago orririk honentzat: %1", "Bilaketa ez dago erabilgarri", "Hemen zaude", "Laguntza"},
    {"be", "Змест", "Паказальнік", "Пошук", "Вынікі", "Фільтр", "Паказаць больш",
     "Перайсці да тэксту", "Назад", "Далей", "Няма ключавых слоў", "Няма старонкі для %1",
     "Пошук недаступны", "Вы тут", "Даведка"},
    {"bg", "Съдържание", "Указател", "Търсене", "Резултати", "Филтър", "Покажи още", "Към текста",
     "Назад", "Напред", "Няма ключови думи", "Няма страница за %1", "Търсенето не е достъпно",
     "Вие сте тук", "Помощ"},
    {"ca", "Contingut", "Índex", "Cerca", "Resultats", "Filtra", "Mostra'n més", "Vés al text",
     "Anterior", "Següent", "No hi ha paraules clau", "No hi ha cap pàgina per a %1",
     "La cerca no està disponible", "Sou aquí", "Ajuda"},
    {"zh-CN", "目录", "索引", "搜索", "结果", "筛选", "显示更多", "跳到正文", "上一页", "下一页",
     "没有关键字", "没有 %1 的页面", "搜索不可用", "当前位置", "帮助"},
    {"zh-TW", "目錄", "索引", "搜尋", "結果", "篩選", "顯示更多", "跳到內文", "上一頁", "下一頁",
     "沒有關鍵字", "沒有 %1 的頁面", "無法使用搜尋", "目前位置", "說明"},
    {"hr", "Sadržaj", "Kazalo", "Traži", "Rezultati", "Filtar", "Prikaži više", "Prijeđi na tekst",
     "Prethodno", "Sljedeće", "Nema ključnih riječi", "Nema stranice za %1",
     "Pretraživanje nije dostupno", "Ovdje ste", "Pomoć"},
    {"cs", "Obsah", "Rejstřík", "Hledat", "Výsledky", "Filtr", "Zobrazit další", "Přejít na text",
     "Předchozí", "Další", "Žádná klíčová slova", "Pro %1 není žádná stránka",
     "Hledání není k dispozici", "Nacházíte se zde", "Nápověda"},
    {"da", "Indhold", "Indeks", "Søg", "Resultater", "Filtrer", "Vis flere", "Gå til teksten",
     "Forrige", "Næste", "Ingen nøgleord", "Der er ingen side for %1",
     "Søgningen er ikke tilgængelig", "Du er her", "Hjælp"},
    {"nl", "Inhoud", "Index", "Zoeken", "Resultaten", "Filteren", "Meer tonen", "Naar de tekst",
     "Vorige", "Volgende", "Geen trefwoorden", "Geen pagina voor %1", "Zoeken is niet beschikbaar",
     "U bent hier", "Help"},
    {"en", "Contents", "Index", "Search", "Results", "Filter", "Show more", "Skip to the text",
     "Previous", "Next", "No keywords", "No page for %1", "The search is not available",
     "You are here", "Help"},
    {"et", "Sisukord", "Register", "Otsing", "Tulemused", "Filter", "Näita rohkem",
     "Liigu teksti juurde", "Eelmine", "Järgmine", "Märksõnu pole", "Lehte pole: %1",
     "Otsing pole saadaval", "Olete siin", "Abi"},
    {"fi", "Sisällys", "Hakemisto", "Haku", "Tulokset", "Suodata", "Näytä lisää", "Siirry tekstiin",
     "Edellinen", "Seuraava", "Ei hakusanoja", "Ei sivua: %1", "Haku ei ole käytettävissä",
     "Olet tässä", "Ohje"},
    {"fr", "Sommaire", "Index", "Rechercher", "Résultats", "Filtrer", "Afficher plus",
     "Aller au texte", "Précédent", "Suivant", "Aucun mot-clé", "Aucune page pour %1",
     "La recherche n’est pas disponible", "Vous êtes ici", "Aide"},
    {"de", "Inhalt", "Index", "Suchen", "Ergebnisse", "Filtern", "Mehr anzeigen",
     "Zum Text springen", "Zurück", "Weiter", "Keine Stichwörter", "Keine Seite für %1",
     "Die Suche ist nicht verfügbar", "Sie sind hier", "Hilfe"},
    {"el", "Περιεχόμενα", "Ευρετήριο", "Αναζήτηση", "Αποτελέσματα", "Φίλτρο",
     "Εμφάνιση περισσότερων", "Μετάβαση στο κείμενο", "Προηγούμενο", "Επόμενο",
     "Δεν υπάρχουν λέξεις-κλειδιά", "Δεν υπάρχει σελίδα για %1", "Η αναζήτηση δεν είναι διαθέσιμη",
     "Βρίσκεστε εδώ", "Βοήθεια"},
    {"he", "תוכן", "מפתח", "חיפוש", "תוצאות", "סינון", "הצג עוד", "דילוג לטקסט", "הקודם", "הבא",
     "אין מילות מפתח", "אין דף עבור %1", "החיפוש אינו זמין", "המיקום שלך", "עזרה"},
    {"hu", "Tartalom", "Tárgymutató", "Keresés", "Találatok", "Szűrés", "Továbbiak",
     "Ugrás a szöveghez", "Előző", "Következő", "Nincs kulcsszó", "Nincs oldal ehhez: %1",
     "A keresés nem érhető el", "Ön itt van", "Súgó"},
    {"is", "Efnisyfirlit", "Atriðaskrá", "Leita", "Niðurstöður", "Sía", "Sýna meira",
     "Fara í texta", "Fyrri", "Næsta", "Engin efnisorð", "Engin síða fyrir %1",
     "Leit er ekki tiltæk", "Þú ert hér", "Hjálp"},
    {"id", "Daftar Isi", "Indeks", "Cari", "Hasil", "Saring", "Tampilkan lagi", "Langsung ke teks",
     "Sebelumnya", "Berikutnya", "Tidak ada kata kunci", "Tidak ada halaman untuk %1",
     "Pencarian tidak tersedia", "Anda di sini", "Bantuan"},
    {"it", "Sommario", "Indice", "Cerca", "Risultati", "Filtra", "Mostra altri", "Vai al testo",
     "Precedente", "Successivo", "Nessuna parola chiave", "Nessuna pagina per %1",
     "La ricerca non è disponibile", "Sei qui", "Guida"},
    {"ja", "目次", "索引", "検索", "検索結果", "絞り込み", "さらに表示", "本文へ移動", "前へ",
     "次へ", "キーワードがありません", "%1 のページはありません", "検索を利用できません",
     "現在位置", "ヘルプ"},
    {"ko", "목차", "색인", "검색", "결과", "필터", "더 보기", "본문으로 건너뛰기", "이전", "다음",
     "키워드 없음", "%1에 대한 페이지가 없습니다", "검색을 사용할 수 없습니다", "현재 위치",
     "도움말"},
    {"lv", "Saturs", "Rādītājs", "Meklēt", "Rezultāti", "Filtrēt", "Rādīt vairāk",
     "Pāriet uz tekstu", "Atpakaļ", "Tālāk", "Nav atslēgvārdu", "Nav lapas: %1",
     "Meklēšana nav pieejama", "Jūs esat šeit", "Palīdzība"},
    {"lt", "Turinys", "Rodyklė", "Ieškoti", "Rezultatai", "Filtruoti", "Rodyti daugiau",
     "Pereiti prie teksto", "Atgal", "Toliau", "Raktažodžių nėra", "Nėra puslapio: %1",
     "Paieška neveikia", "Jūs esate čia", "Žinynas"},
    {"nb", "Innhold", "Indeks", "Søk", "Resultater", "Filtrer", "Vis flere", "Gå til teksten",
     "Forrige", "Neste", "Ingen nøkkelord", "Ingen side for %1", "Søket er ikke tilgjengelig",
     "Du er her", "Hjelp"},
    {"nn", "Innhald", "Indeks", "Søk", "Resultat", "Filtrer", "Vis fleire", "Gå til teksten",
     "Førre", "Neste", "Ingen nøkkelord", "Inga side for %1", "Søket er ikkje tilgjengeleg",
     "Du er her", "Hjelp"},
    {"pl", "Spis treści", "Indeks", "Szukaj", "Wyniki", "Filtruj", "Pokaż więcej",
     "Przejdź do tekstu", "Wstecz", "Dalej", "Brak słów kluczowych", "Brak strony dla %1",
     "Wyszukiwanie jest niedostępne", "Jesteś tutaj", "Pomoc"},
    {"pt-BR", "Conteúdo", "Índice", "Pesquisar", "Resultados", "Filtrar", "Mostrar mais",
     "Ir para o texto", "Anterior", "Próximo", "Nenhuma palavra-chave", "Nenhuma página para %1",
     "A pesquisa não está disponível", "Você está aqui", "Ajuda"},
    {"pt", "Conteúdo", "Índice", "Procurar", "Resultados", "Filtrar", "Mostrar mais",
     "Ir para o texto", "Anterior", "Seguinte", "Sem palavras-chave", "Nenhuma página para %1",
     "A pesquisa não está disponível", "Está aqui", "Ajuda"},
    {"ro", "Cuprins", "Index", "Căutare", "Rezultate", "Filtrare", "Arată mai multe",
     "Salt la text", "Înapoi", "Înainte", "Niciun cuvânt-cheie", "Nicio pagină pentru %1",
     "Căutarea nu este disponibilă", "Sunteți aici", "Ajutor"},
    {"ru", "Содержание", "Указатель", "Поиск", "Результаты", "Фильтр", "Показать ещё",
     "Перейти к тексту", "Назад", "Далее", "Нет ключевых слов", "Нет страницы для %1",
     "Поиск недоступен", "Вы здесь", "Справка"},
    {"sr-Cyrl", "Садржај", "Индекс", "Претрага", "Резултати", "Филтер", "Прикажи још",
     "Пређи на текст", "Претходно", "Следеће", "Нема кључних речи", "Нема странице за %1",
     "Претрага није доступна", "Овде сте", "Помоћ"},
    {"sr-Latn", "Sadržaj", "Indeks", "Pretraga", "Rezultati", "Filter", "Prikaži još",
     "Pređi na tekst", "Prethodno", "Sledeće", "Nema ključnih reči", "Nema stranice za %1",
     "Pretraga nije dostupna", "Ovde ste", "Pomoć"},
    {"sk", "Obsah", "Register", "Hľadať", "Výsledky", "Filter", "Zobraziť ďalšie", "Prejsť na text",
     "Späť", "Ďalej", "Žiadne kľúčové slová", "Pre %1 nie je žiadna stránka",
     "Hľadanie nie je k dispozícii", "Nachádzate sa tu", "Pomocník"},
    {"sl", "Vsebina", "Kazalo", "Iskanje", "Rezultati", "Filter", "Pokaži več", "Skoči na besedilo",
     "Nazaj", "Naprej", "Ni ključnih besed", "Ni strani za %1", "Iskanje ni na voljo", "Tukaj ste",
     "Pomoč"},
    {"es", "Contenido", "Índice", "Buscar", "Resultados", "Filtrar", "Mostrar más", "Ir al texto",
     "Anterior", "Siguiente", "No hay palabras clave", "No hay ninguna página para %1",
     "La búsqueda no está disponible", "Está aquí", "Ayuda"},
    {"sv", "Innehåll", "Index", "Sök", "Resultat", "Filtrera", "Visa fler", "Gå till texten",
     "Föregående", "Nästa", "Inga nyckelord", "Ingen sida för %1", "Sökningen är inte tillgänglig",
     "Du är här", "Hjälp"},
    {"th", "สารบัญ", "ดัชนี", "ค้นหา", "ผลลัพธ์", "กรอง", "แสดงเพิ่มเติม", "ข้ามไปยังข้อความ", "ก่อนหน้า", "ถัดไป",
     "ไม่มีคำสำคัญ", "ไม่มีหน้าสำหรับ %1", "ไม่สามารถใช้การค้นหาได้", "คุณอยู่ที่นี่", "วิธีใช้"},
    {"tr", "İçindekiler", "Dizin", "Ara", "Sonuçlar", "Filtrele", "Daha fazla göster", "Metne geç",
     "Önceki", "Sonraki", "Anahtar sözcük yok", "%1 için sayfa yok", "Arama kullanılamıyor",
     "Buradasınız", "Yardım"},
    {"uk", "Зміст", "Покажчик", "Пошук", "Результати", "Фільтр", "Показати ще", "Перейти до тексту",
     "Назад", "Далі", "Немає ключових слів", "Немає сторінки для %1", "Пошук недоступний", "Ви тут",
     "Довідка"},
    {"vi", "Mục lục", "Chỉ mục", "Tìm kiếm", "Kết quả", "Lọc", "Hiện thêm", "Chuyển đến văn bản",
     "Trước", "Tiếp", "Không có từ khóa", "Không có trang cho %1", "Không thể tìm kiếm",
     "Bạn đang ở đây", "Trợ giúp"},
};

const Labels* findLabels(TextView tag) {
    return std::find_if(std::begin(all), std::end(all), [tag](const Labels& labels) {
        return startsWithIgnoringCase(tag, labels.language);
    });
}

} // namespace

const Labels& labelsOf(TextView languageTag) {
    const Labels* found = findLabels(languageTag);
    return found != std::end(all) ? *found : *findLabels(defaultLanguage);
}

bool hasEnglishLabels(TextView languageTag) {
    return TextView(labelsOf(languageTag).language) == "en";
}

} // namespace text
