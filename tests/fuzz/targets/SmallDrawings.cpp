// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/targets/SmallDrawings.h"

namespace sm::fuzz {

namespace {

const std::vector<std::string>& Lines()
{
    static const std::vector<std::string> kLines{
        "0\nLINE\n5\n50\n8\nA\n62\n1\n370\n50\n10\n1\n20\n2\n11\n30\n21\n40\n",
        "0\nLINE\n6\nGAS\n48\n2\n10\n0\n20\n0\n30\n5\n11\n90\n21\n50\n39\n3\n210\n0\n220\n1\n230\n1\n",
        "0\nXLINE\n10\n1\n20\n2\n11\n1\n21\n0\n0\nRAY\n10\n5\n20\n5\n11\n0\n21\n1\n",
        "0\nCIRCLE\n6\nGAS\n10\n50\n20\n50\n40\n20\n0\nARC\n10\n50\n20\n50\n40\n20\n50\n30\n51\n200\n",
        "0\nELLIPSE\n10\n50\n20\n50\n11\n20\n21\n5\n40\n0.5\n41\n0\n42\n4\n",
        "0\nPOINT\n10\n5\n20\n5\n50\n30\n",
        "0\nLWPOLYLINE\n90\n3\n70\n1\n43\n0.5\n10\n1\n20\n2\n42\n1\n10\n30\n20\n4\n40\n1\n41\n2\n10\n30\n20\n40\n",
        "0\nPOLYLINE\n66\n1\n70\n1\n40\n1\n41\n2\n0\nVERTEX\n10\n1\n20\n0\n42\n0."
        "5\n0\nVERTEX\n10\n20\n20\n9\n0\nSEQEND\n",
        "0\nPOLYLINE\n66\n1\n70\n17\n71\n2\n72\n2\n73\n3\n74\n3\n75\n5\n0\nVERTEX\n70\n64\n10\n1\n20\n0\n0\nVERTEX\n70"
        "\n64\n"
        "10\n20\n20\n9\n0\nVERTEX\n70\n64\n10\n2\n20\n30\n0\nVERTEX\n70\n64\n10\n20\n20\n30\n0\nSEQEND\n",
        "0\nPOLYLINE\n66\n1\n70\n64\n71\n3\n72\n1\n0\nVERTEX\n70\n192\n10\n1\n20\n0\n0\nVERTEX\n70\n192\n10\n9\n20\n0\n"
        "0\n"
        "VERTEX\n70\n192\n10\n9\n20\n9\n0\nVERTEX\n70\n128\n71\n1\n72\n-2\n73\n3\n0\nSEQEND\n",
        "0\nSPLINE\n70\n8\n71\n3\n72\n8\n73\n4\n74\n0\n40\n0\n40\n0\n40\n0\n40\n0\n40\n1\n40\n1\n40\n1\n40\n1\n10\n1\n2"
        "0\n2\n"
        "10\n20\n20\n30\n10\n40\n20\n2\n10\n60\n20\n30\n41\n1\n41\n2\n41\n1\n41\n1\n",
        "0\nSPLINE\n70\n8\n71\n3\n74\n3\n11\n1\n21\n2\n11\n20\n21\n30\n11\n40\n21\n2\n12\n1\n22\n1\n",
        "0\nHELIX\n100\nAcDbSpline\n70\n0\n71\n3\n72\n8\n73\n4\n40\n0\n40\n0\n40\n0\n40\n0\n40\n1\n40\n1\n40\n1\n40\n1"
        "\n10\n1\n"
        "20\n2\n10\n20\n20\n30\n10\n40\n20\n2\n10\n60\n20\n30\n100\nAcDbHelix\n40\n5\n41\n3\n42\n2\n"};
    return kLines;
}

const std::vector<std::string>& Areas()
{
    static const std::vector<std::string> kAreas{
        "0\nSOLID\n10\n1\n20\n1\n11\n9\n21\n1\n12\n1\n22\n9\n13\n9\n23\n9\n0\n3DFACE\n10\n1\n20\n1\n11\n9\n21\n1\n12\n9"
        "\n22\n9\n13"
        "\n1\n23\n9\n70\n1\n",
        "0\nHATCH\n2\nX\n70\n0\n91\n2\n92\n1\n93\n2\n72\n1\n10\n0\n20\n0\n11\n50\n21\n1\n72\n4\n94\n3\n73\n0\n74\n0\n95"
        "\n2\n96\n2\n"
        "40\n0\n40\n1\n10\n50\n20\n1\n10\n0\n20\n30\n97\n0\n92\n1\n93\n2\n72\n2\n10\n30\n20\n30\n40\n9\n50\n0\n51\n180"
        "\n73\n1\n72\n"
        "3\n10\n30\n20\n30\n11\n9\n21\n0\n40\n0."
        "5\n50\n180\n51\n360\n73\n1\n97\n0\n75\n0\n76\n1\n52\n30\n41\n2\n77\n0\n78\n1\n53\n45\n"
        "43\n0\n44\n0\n45\n-2\n46\n2\n79\n2\n49\n0.5\n49\n-0.5\n98\n1\n10\n3\n20\n3\n",
        "0\nHATCH\n2\nSOLID\n70\n1\n91\n1\n92\n2\n72\n1\n73\n1\n93\n3\n10\n1\n20\n1\n42\n0."
        "5\n10\n60\n20\n1\n42\n0\n10\n30\n20\n40\n42"
        "\n0\n97\n0\n75\n1\n76\n1\n98\n0\n",
        "0\nHATCH\n2\nSOLID\n70\n1\n91\n1\n92\n2\n72\n0\n73\n1\n93\n3\n10\n1\n20\n1\n10\n60\n20\n1\n10\n30\n20\n40\n97"
        "\n0\n75\n2\n76\n1"
        "\n98\n0\n450\n1\n451\n0\n460\n0.5\n461\n0."
        "2\n452\n0\n462\n1\n453\n2\n463\n0\n63\n1\n421\n255\n463\n1\n63\n2\n421\n65280\n"
        "470\nSPHERICAL\n",
        "0\nMPOLYGON\n2\nSOLID\n70\n1\n91\n1\n92\n2\n72\n0\n73\n1\n93\n3\n10\n1\n20\n1\n10\n60\n20\n1\n10\n30\n20\n40\n"
        "75\n1\n76\n1\n",
        "0\nMLINE\n2\nSTANDARD\n340\n70\n40\n2\n70\n0\n71\n3\n72\n2\n73\n2\n10\n1\n20\n1\n11\n1\n21\n1\n12\n1\n22\n0\n1"
        "3\n0\n23\n1\n74\n2"
        "\n41\n0.5\n41\n0\n75\n0\n74\n1\n41\n-0.5\n75\n0\n11\n60\n21\n1\n12\n1\n22\n0\n13\n0\n23\n1\n74\n1\n41\n0."
        "5\n75\n0\n74\n1\n41"
        "\n-0.5\n75\n0\n",
        "0\nMESH\n71\n2\n72\n0\n91\n0\n92\n4\n10\n1\n20\n1\n30\n0\n10\n9\n20\n1\n30\n0\n10\n9\n20\n9\n30\n0\n10\n1\n20"
        "\n9\n30\n0\n93\n5\n90"
        "\n4\n90\n0\n90\n1\n90\n2\n90\n3\n94\n1\n90\n0\n90\n1\n95\n1\n140\n0\n",
        "0\n3DSOLID\n70\n1\n1\n400 3 1 0\n1\nbody $-1 $1 $-1 $-1 #\n1\nlump $-1 $-1 $-1 $-1 #\n",
        "0\nREGION\n70\n1\n310\n41434953\n"};
    return kAreas;
}

const std::vector<std::string>& Texts()
{
    static const std::vector<std::string> kTexts{
        "0\nTEXT\n10\n5\n20\n5\n40\n5\n1\n%%cA%%d \\U+00e4 "
        "%%uB\n50\n30\n41\n0.8\n51\n10\n72\n1\n11\n9\n21\n9\n73\n2\n71\n2\n",
        "0\nTEXT\n10\n5\n20\n5\n40\n5\n1\n\xD7\xA9\xD7\x9C ab\n7\nStandard\n72\n5\n11\n50\n21\n5\n",
        "0\nMTEXT\n10\n5\n20\n50\n40\n3\n41\n40\n71\n5\n72\n1\n3\n{\\fArial|b1|i0;A\\P\\C1;\\H2x;b}\n1\n\\S1/2; "
        "\\A1;\\Lu\\l\\~\\Q10;c\n44"
        "\n1.2\n73\n2\n90\n1\n63\n2\n45\n1.5\n",
        "0\nMTEXT\n10\n5\n20\n50\n40\n3\n41\n40\n1\n\\pi2,l3,t4,c9;a^"
        "Ib\\Pc\\Ncol\n75\n1\n76\n2\n48\n20\n49\n3\n46\n9\n11\n1\n21\n1\n"
        "1001\nACAD\n1000\nACAD_MTEXT_COLUMN_INFO_BEGIN\n1070\n75\n1070\n1\n1070\n76\n1070\n2\n1000\n"
        "ACAD_MTEXT_COLUMN_INFO_END\n",
        "0\nATTDEF\n10\n5\n20\n5\n40\n3\n1\nx\n3\np\n2\nNO\n70\n0\n",
        "0\nDIMENSION\n2\n*D1\n3\nDS\n10\n5\n20\n30\n11\n20\n21\n32\n13\n1\n23\n1\n14\n40\n24\n1\n70\n32\n1\n<>"
        "mm\n42\n39\n50\n0\n"
        "1001\nACAD\n1000\nDSTYLE\n1002\n{\n1070\n140\n1040\n5\n1002\n}\n",
        "0\nDIMENSION\n3\nDS\n10\n5\n20\n30\n13\n1\n23\n1\n14\n40\n24\n1\n15\n9\n25\n9\n16\n4\n26\n4\n70\n2\n0\nDIMENSI"
        "ON\n3\nDS\n10\n5\n20\n"
        "30\n15\n20\n25\n20\n70\n4\n40\n3\n",
        "0\nDIMENSION\n3\nDS\n10\n5\n20\n30\n13\n1\n23\n1\n14\n40\n24\n1\n70\n6\n0\nARC_"
        "DIMENSION\n3\nDS\n10\n5\n20\n30\n13\n1\n23\n1\n14\n40\n24"
        "\n1\n15\n20\n25\n9\n70\n5\n",
        "0\nLEADER\n3\nDS\n71\n1\n72\n1\n73\n0\n74\n1\n75\n1\n40\n3\n41\n9\n76\n3\n10\n1\n20\n1\n10\n20\n20\n20\n10\n40"
        "\n20\n20\n340\n50\n",
        "0\nTOLERANCE\n3\nDS\n10\n5\n20\n5\n1\n{\\Fgdt;j}%%v{\\Fgdt;n}0.1%%vA%%v\n11\n1\n21\n0\n",
        "0\nMULTILEADER\n270\n2\n300\nCONTEXT_DATA{"
        "\n40\n1\n10\n5\n20\n5\n41\n3\n140\n2\n145\n1\n174\n1\n290\n1\n304\nab\n11\n0\n21\n0\n31\n1\n"
        "340\n40\n12\n5\n22\n5\n13\n1\n23\n0\n42\n0\n43\n9\n44\n3\n302\nLEADER{"
        "\n290\n1\n291\n1\n10\n9\n20\n9\n11\n1\n21\n0\n90\n0\n40\n2\n304\n"
        "LEADER_LINE{\n10\n30\n20\n30\n91\n0\n305\n}\n303\n}\n301\n}\n340\n72\n90\n0\n170\n1\n172\n2\n342\n0\n42\n3\n",
        "0\nACAD_TABLE\n2\n*"
        "T1\n10\n5\n20\n60\n11\n1\n21\n0\n91\n2\n92\n2\n141\n5\n141\n5\n142\n20\n142\n20\n171\n1\n172\n0\n173\n0\n174\n"
        "0\n175\n1\n"
        "176\n1\n1\na\n171\n1\n173\n0\n1\nb\n171\n1\n1\nc\n171\n1\n1\nd\n"};
    return kTexts;
}

const std::vector<DrawingPieces>& WithParts()
{
    static const std::vector<DrawingPieces> kParts{
        {"0\nINSERT\n66\n1\n2\nDoor\n10\n5\n20\n5\n41\n2\n42\n-"
         "1\n50\n30\n70\n3\n71\n2\n44\n20\n45\n20\n0\nATTRIB\n10\n5\n20\n5\n40\n3\n1\nt\n2"
         "\nNO\n101\nEmbedded Object\n1\nm\n0\nSEQEND\n",
         "0\nBLOCK\n5\n80\n2\nDoor\n10\n1\n20\n2\n0\nLINE\n8\n0\n62\n0\n6\nBYBLOCK\n10\n1\n20\n2\n11\n9\n21\n9\n0\nINSE"
         "RT\n2\nDoor\n0\nATTDEF\n"
         "40\n3\n1\nx\n2\nNO\n70\n2\n0\nENDBLK\n",
         "", "0\nBLOCK_RECORD\n5\n80\n2\nDoor\n70\n4\n"},
        {"0\nVIEWPORT\n67\n1\n68\n2\n69\n2\n10\n100\n20\n100\n40\n80\n41\n80\n12\n5\n22\n5\n16\n1\n26\n-"
         "1\n36\n1\n17\n0\n27\n0\n42\n50\n43\n0\n44\n"
         "0\n45\n90\n51\n10\n90\n17\n331\n11\n340\n51\n0\nLWPOLYLINE\n5\n51\n67\n1\n90\n3\n70\n1\n10\n60\n20\n60\n10\n1"
         "40\n20\n60\n10\n99\n20\n140\n"
         "0\nLINE\n10\n1\n20\n1\n30\n1\n11\n9\n21\n9\n31\n9\n",
         "", "", ""},
        {"0\nIMAGE\n10\n5\n20\n5\n11\n0.1\n21\n0\n12\n0\n22\n0."
         "1\n13\n100\n23\n100\n340\n60\n70\n7\n280\n1\n281\n50\n282\n50\n283\n0\n71\n2\n91\n3\n14\n"
         "0\n24\n0\n14\n90\n24\n0\n14\n50\n24\n90\n",
         "", "0\nIMAGEDEF\n5\n60\n1\na.png\n10\n100\n20\n100\n280\n1\n", ""},
        {"0\nWIPEOUT\n10\n5\n20\n5\n11\n30\n21\n0\n12\n0\n22\n30\n13\n1\n23\n1\n280\n1\n71\n2\n91\n3\n14\n-0.5\n24\n-0."
         "5\n14\n0.5\n24\n-0.5\n14\n0\n24\n"
         "0.5\n",
         "", "", ""},
        {"0\nPDFUNDERLAY\n340\n61\n10\n5\n20\n5\n41\n1\n42\n1\n50\n0\n280\n2\n281\n100\n282\n0\n11\n0\n21\n0\n11\n9\n21"
         "\n9\n",
         "", "0\nPDFDEFINITION\n5\n61\n1\nplan.pdf\n2\n1\n", ""},
        {"0\nSHAPE\n10\n5\n20\n5\n40\n3\n2\nBOX\n50\n30\n", "", "", ""},
        {"0\nOLE2FRAME\n70\n2\n10\n5\n20\n50\n11\n50\n21\n5\n71\n2\n90\n8\n310\nD0CF11E0A1B11AE1\n1\nOLE\n", "", "",
         ""},
        {"0\nACAD_PROXY_"
         "ENTITY\n90\n498\n91\n500\n92\n40\n310\n28000000010000002000000006000000020000000000000000000000\n94\n0\n",
         "", "", ""},
        {"0\nLINE\n5\n50\n10\n1\n11\n9\n0\nLINE\n5\n51\n10\n1\n11\n9\n", "",
         "0\nSORTENTSTABLE\n5\n70\n330\n1F\n331\n50\n5\n51\n331\n51\n5\n50\n0\nPLOTSETTINGS\n5\n71\n1\nSetup\n2\nnone\n"
         "44\n210\n45\n297\n"
         "0\nSCALE\n5\n41\n300\n1:2\n140\n1\n141\n2\n0\nXRECORD\n5\n73\n1\na\n70\n5\n",
         "0\nVIEW\n2\nV\n10\n5\n20\n5\n40\n9\n41\n9\n11\n0\n21\n0\n31\n1\n"},
        {"0\nSOLID\n10\n1\n20\n1\n11\n9\n21\n1\n12\n1\n22\n9\n440\n33554559\n420\n255\n284\n1\n", "",
         "0\nMLINESTYLE\n5\n70\n2\nSTANDARD\n70\n0\n51\n90\n52\n90\n71\n2\n49\n0.5\n62\n256\n6\nBYLAYER\n49\n-0."
         "5\n0\nMLEADERSTYLE\n5\n72\n170\n2\n0\n"
         "TABLESTYLE\n5\n74\n3\nStd\n7\nStandard\n140\n2\n",
         "0\nDIMSTYLE\n105\n75\n2\nDS\n40\n2\n41\n3\n140\n3\n77\n1\n271\n2\n5\n_DOT\n173\n1\n"}};
    return kParts;
}

} // namespace

std::string DrawingOf(const DrawingPieces& pieces, const std::string& version)
{
    const auto section = [](const std::string& name, const std::string& content) {
        return "0\nSECTION\n2\n" + name + "\n" + content + "0\nENDSEC\n";
    };
    const std::string layout = "44\n210\n45\n297\n40\n5\n41\n5\n42\n5\n43\n5\n142\n1\n143\n1\n70\n16\n75\n16\n";
    return section("HEADER", "9\n$ACADVER\n1\n" + version + "\n9\n$PDMODE\n70\n35\n9\n$LTSCALE\n40\n1\n") +
           section("TABLES", "0\nLTYPE\n2\nGAS\n40\n3\n73\n3\n49\n2\n74\n0\n49\n-1\n74\n2\n75\n0\n340\n40\n46\n0."
                             "1\n9\nG\n49\n0\n74\n0\n"
                             "0\nLAYER\n2\n0\n62\n7\n0\nLAYER\n5\n11\n2\nA\n62\n3\n6\nGAS\n"
                             "0\nSTYLE\n5\n40\n2\nStandard\n3\ntxt\n0\nBLOCK_RECORD\n5\n1F\n2\n*Model_Space\n"
                             "0\nBLOCK_RECORD\n5\n1B\n2\n*Paper_Space\n340\n31\n" +
                                 pieces.tables) +
           section("BLOCKS", pieces.blocks) + section("ENTITIES", pieces.entities) +
           section("OBJECTS", "0\nDICTIONARY\n5\nC\n330\n0\n3\nACAD_LAYOUT\n350\nD\n"
                              "0\nLAYOUT\n5\n30\n100\nAcDbPlotSettings\n74\n1\n72\n1\n" +
                                  layout +
                                  "100\nAcDbLayout\n1\nModel\n71\n0\n330\n1F\n0\nLAYOUT\n5\n31\n100\nAcDbPlotSettings\n"
                                  "74\n5\n72\n1\n" +
                                  layout + "100\nAcDbLayout\n1\nPlan\n71\n1\n330\n1B\n" + pieces.objects) +
           "0\nEOF\n";
}

std::vector<std::string> SmallDrawings()
{
    std::vector<std::string> drawings;
    for (const auto* list : {&Lines(), &Areas(), &Texts()})
        for (const std::string& entities : *list)
            drawings.push_back(DrawingOf({entities, "", "", "0\nDIMSTYLE\n105\n75\n2\nDS\n40\n2\n41\n3\n140\n3\n"}));
    for (const DrawingPieces& pieces : WithParts())
        drawings.push_back(DrawingOf(pieces));
    drawings.push_back(DrawingOf({Lines()[0] + Texts()[0], "", "", ""}, "AC1009"));
    drawings.push_back("0\nSECTION\n2\nENTITIES\n" + Lines()[0] + Texts()[0] + "0\nENDSEC\n0\nEOF\n");
    return drawings;
}

} // namespace sm::fuzz
