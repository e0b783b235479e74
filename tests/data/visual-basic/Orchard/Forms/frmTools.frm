VERSION 5.00
Begin VB.Form frmTools 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Tools"
   ClientHeight    =   4430
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6180
   BeginProperty Font 
      Name            =   "MS Sans Serif"
      Size            =   8.25
      Charset         =   0
   EndProperty
   HelpContextID   =   1070
   LinkTopic       =   "Form1"
   ScaleHeight     =   4200
   StartUpPosition =   1  'CenterOwner
   Begin VB.Menu mnuT 
      Begin VB.Menu mnuT1 
         Caption         =   "One"
      End
      Begin VB.Menu mnuT2 
      End
      Begin VB.Menu mnuT3 
         Caption         =   "Three"
      End
   End
   Begin VB.Menu mnuEmpty 
      Caption         =   "Empty && Plain"
   End
End
Attribute VB_Name = "frmTools"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub a()
    frmPrint.Show
    x = 1: frmOptions.Show
End Sub

