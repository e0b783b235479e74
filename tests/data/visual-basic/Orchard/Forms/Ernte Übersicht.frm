VERSION 5.00
Begin VB.Form frmErnte 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Ernte-Übersicht"
   ClientHeight    =   5780
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   BeginProperty Font 
      Name            =   "MS Sans Serif"
      Size            =   8.25
      Charset         =   0
   EndProperty
   HelpContextID   =   1050
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
   Begin VB.Menu mnuListe 
      Caption         =   "&Liste"
      Begin VB.Menu mnuListeMenge 
         Caption         =   "&Menge (t)"
      End
      Begin VB.Menu mnuListeGroesse 
         Caption         =   "&Größe"
      End
   End
End
Attribute VB_Name = "frmErnte"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdDruck_Click()
    frmPrint.Show
End Sub

