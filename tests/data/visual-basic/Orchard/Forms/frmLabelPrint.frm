VERSION 5.00
Begin VB.Form frmLabelPrint 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Print Labels"
   ClientHeight    =   3230
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
End
Attribute VB_Name = "frmLabelPrint"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdSetup_Click()
    dlgPrinter.ShowPrinter
End Sub

