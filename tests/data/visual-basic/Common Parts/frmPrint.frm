VERSION 5.00
Begin VB.Form frmPrint 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Print"
   ClientHeight    =   3125
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   BeginProperty Font 
      Name            =   "MS Sans Serif"
      Size            =   8.25
      Charset         =   0
   EndProperty
   HelpContextID   =   900
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
End
Attribute VB_Name = "frmPrint"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdOptions_Click()
    frmOptions.Show vbModal, Me
End Sub
